#pragma once

// What a control's widgets tell assistive technology; not API.

#include <QCoreApplication>
#include <QString>
#include <QVector>

class PropBag;
class QObject;
class QWidget;

/**
 * Names and describes the focusable widgets of one control after its item:
 * the caption (with the element's caption for an element binding) as the
 * accessible name, the item's description followed by the varies and
 * read-only states as the accessible description. A name or description that
 * someone else gave a widget (a composite naming its axis, a host) is kept.
 *
 * The control asks after each set-up and refresh; the work runs once, after
 * the current event, when the derived control has finished building and
 * showing its state, or, for a control not shown yet, when it is first
 * polished. The updates of all controls asking in one event share one
 * posted call.
 */
class PropUiAccessibility
{
  Q_DECLARE_TR_FUNCTIONS(PropUiAccessibility)

public:
  /** What a control edits, as captions and editors are matched by it. */
  struct Binding
  {
    PropBag* bag;
    int index;
    bool isElement;
    unsigned long element;
  };

  /** What this class asks of the control it serves, and of the controls beside it. */
  class Subject
  {
  public:
    virtual QWidget* widget() const = 0;
    virtual Binding binding() const = 0;
    /** Whether the control shows that the selected objects disagree. */
    virtual bool showsVaries() const = 0;
    /** A caption names the editor beside it rather than widgets of its own. */
    virtual bool isCaption() const = 0;
    virtual bool isControl(const QObject* object) const = 0;
    /** What another control answers, or null for an object that is no control or is not bound yet. */
    virtual const Subject* subjectOf(const QObject* object) const = 0;

  protected:
    ~Subject() = default;
  };

  explicit PropUiAccessibility(const Subject& subject);
  ~PropUiAccessibility();
  PropUiAccessibility(const PropUiAccessibility&) = delete;
  PropUiAccessibility& operator=(const PropUiAccessibility&) = delete;

  /** The next update re-reads caption and description from the bag. */
  void forgetTexts();
  /**
   * The control was built anew or bound to another item: the next update
   * re-reads the texts and looks for the caption or the editor again.
   */
  void rebuilt();
  /** Another language: every text is made anew, after the current event. */
  void languageChanged();
  /** Updates after the current event; asking again before then changes nothing. */
  void schedule();
  /** Updates now. */
  void update();
  /**
   * The control is about to be shown for the first time: every waiting
   * update runs now, before Qt lays the panel out.
   */
  void polished();

  /** What a widget's accessible description says: the description, then the states. */
  static QString announcement(const QString& description, bool varies, bool readOnly);
  /** Whether the user cannot change what the widget shows. */
  static bool isReadOnly(const QWidget* widget);

private:
  /**
   * What this class gave a widget last, so a later update can tell its own
   * text from one that someone else set, and what it was made from, so an
   * update in which none of that changed leaves the widget alone.
   */
  struct Given
  {
    const QWidget* widget;
    QString name;
    QString description;
    quint32 texts;
    bool varies;
    bool readOnly;
    QString buttonText;
    QString buttonTip;
  };

  static void runPosted();
  static void runWaiting();
  void readTexts();
  const Given* givenTo(const QWidget* widget) const;
  /** Names and describes the widget; answers what it now carries of ours. */
  Given describe(QWidget* widget, bool varies) const;
  bool unchanged(const Given& earlier, const Given& now) const;
  QString nameOf(const QWidget* widget) const;
  void tieCaption() const;
  void tieToCaption();

  const Subject& m_subject;
  QString m_caption;
  QString m_description;
  /** Counts the changes of caption, description and language. */
  quint32 m_texts = 0;
  QVector<Given> m_given;
  bool m_textsKnown = false;
  bool m_pending = false;
  /** An editor looks for its caption once per set-up, after it has a parent. */
  bool m_captionSought = false;
};
