#pragma once

// What a control's widgets tell assistive technology; not API.

#include <QCoreApplication>
#include <QString>
#include <QVector>

class PropUiQControl;
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
  explicit PropUiAccessibility(PropUiQControl* control);
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

  PropUiQControl* m_control;
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
