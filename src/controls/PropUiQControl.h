#pragma once

#include "OdString.h"
#include "PropUiOptions.h"
#include "PropUiQWidget.h"
#include <QPointer>
#include <QVector>
#include <memory>

class PropUiActionToolButtonsCtrl;
class PropUiQControlPrivate;
class PropUiQEventFilter;
class PropUiQFormatter;
class PropVariant;
class QBoxLayout;
class QHBoxLayout;
class QLayout;

/**
 * The common implementation of the controls: which bag item it edits, its
 * formatter, its actions toolbar, its filters and the deferred messages.
 * Derived controls call the base versions of setupUi, updateUi and
 * updateData first.
 */
class PROPWIDGETS_EXPORT PropUiQControl : public PropUiQWidget
{
  Q_OBJECT

public:
  /** How a commit through commitValue ended. */
  enum class CommitResult
  {
    Written,   ///< validated and written
    Refused,   ///< validate said no; its message is on its way to the user
    NotWritten,///< validated, but the write failed
    Unbound    ///< no bag: nothing was asked
  };
  /** What a commit writes, or a read reads. */
  enum class CommitTarget
  {
    Binding,  ///< the bound element, or the item for a whole-item binding
    WholeItem ///< the item, whatever the binding (choices: a listed value belongs to the item)
  };
  /** How a refusal's message reaches the user. */
  enum class RefusalMessage
  {
    Error,
    Information
  };

  /**
   * Marks a write to the bag in progress, for one scope. A scope opened while
   * the control is already writing or changing its own widgets does not
   * enter: a write that moves the focus, or a refresh that changes the
   * widget, must not start another write. Nor does one opened while the
   * control's window is being taken down: the focus leaving then is not the
   * user finishing an edit.
   */
  class PROPWIDGETS_EXPORT WriteScope
  {
  public:
    explicit WriteScope(PropUiQControl* control);
    ~WriteScope();
    WriteScope(const WriteScope&) = delete;
    WriteScope& operator=(const WriteScope&) = delete;
    /** False when the control was busy already; the caller then writes nothing. */
    bool entered() const { return m_entered; }

  private:
    PropUiQControl* m_control;
    /** This scope marked the control busy, and clears it again. */
    bool m_held;
    bool m_entered;
  };

  /**
   * Marks the control as changing its own widgets (a refresh, a rebuild, a
   * value put back), for one scope: what the widgets signal meanwhile is not
   * the user, and starts no write.
   */
  class PROPWIDGETS_EXPORT WidgetUpdateScope
  {
  public:
    explicit WidgetUpdateScope(PropUiQControl* control);
    ~WidgetUpdateScope();
    WidgetUpdateScope(const WidgetUpdateScope&) = delete;
    WidgetUpdateScope& operator=(const WidgetUpdateScope&) = delete;

  private:
    PropUiQControl* m_control;
    bool m_held;
  };

  explicit PropUiQControl(QWidget* parent = nullptr);
  ~PropUiQControl() override;

  bool setupUi() override;
  void updateUi() override;
  void setPropBagItem(PropBag* bag, int index) override;
  void setPropBagItem(PropBag* bag, int index, unsigned long element) override;
  void disableActionsToolbar(bool disable) override;
  void updateData() override;
  int getOptions() const override;
  void setOptions(int options) override;

public Q_SLOTS:
  void onUpdateDisplay() override;

public:
  bool isVaries() const override;
  void setVaries(bool varies) override;

  bool isPropertyElement() const { return m_isPropertyElement; }
  PropBag* propBag() const { return m_bag; }
  int itemIndex() const { return m_index; }
  unsigned long element() const { return m_element; }

  /** The formatter given, or the default one, made on the first call. */
  PropUiQFormatter* getFormatter() const;
  /** Replaces the pointer only; the previous formatter stays a child of the control. */
  void setFormatter(PropUiQFormatter* formatter);

  /**
   * Gives the control its layout, made without a parent, and lays the control
   * out when it is shown rather than on a posted request. Answers the layout.
   */
  template <class Layout>
  Layout* adoptLayout(Layout* layout)
  {
    adopt(layout);
    return layout;
  }

  /**
   * The prologue of a one-row control: lays the control out as a row without
   * margins and answers it. The editor goes in next, then addActionsToolBar.
   * A spacing of -1 leaves the spacing to the style.
   */
  QHBoxLayout* setupRow(int spacing = 0);
  /** Puts the item's actions toolbar, when it has one, at the end of the row. */
  void addActionsToolBar(QBoxLayout* row);
  /** Lets the user change the editor only as far as the bag lets the bound item be edited. */
  void showEditable(QWidget* editor);

  /** Rebuilds the item's actions toolbar; null when the item has no actions. */
  PropUiActionToolButtonsCtrl* createActionsToolBar();

  /** Posts the bag's message for after the current event; false when nothing is shown. */
  bool showInfoMessage(const OdString& message);
  bool showErrorMessage(const OdString& message);

  void useFocusReactor(QWidget* widget);
  void useFocusRedirect(QWidget* widget, QWidget* target);
  /** Shows the item's description as the widget's tool tip, from the first refresh that finds one. */
  void useToolTipFilter(QWidget* widget);

  /**
   * Whether the widget's window is being hidden, closed or destroyed just
   * now: Qt moves the focus out of a window in the middle of hiding it, and
   * a window deleted while shown is hidden first.
   */
  static bool isWindowGoingAway(const QWidget* widget);

  /** Reads the bound element or, for a whole-item binding, the item. False when unbound or refused. */
  bool readValue(PropVariant& value) const;
  /** As readValue, for the item whatever the binding when `target` is WholeItem. */
  bool readValue(PropVariant& value, CommitTarget target) const;

  /**
   * The one way an edit reaches the bag: validate, show a refusal's message
   * (deferred, and not at all while the editor is losing focus), then write.
   * The caller puts its widget back on anything but Written.
   */
  CommitResult commitValue(const PropVariant& value, CommitTarget target = CommitTarget::Binding,
                           RefusalMessage refusal = RefusalMessage::Error);
  /** As commitValue, for another element of the bound item (a row of a list writing its check box). */
  CommitResult commitElementValue(unsigned long element, const PropVariant& value,
                                  RefusalMessage refusal = RefusalMessage::Error);

  /** Whether messages are posted at all (false while the editor is losing focus). */
  bool messagesSuppressed() const { return m_messagesSuppressed; }
  void setMessagesSuppressed(bool suppressed) { m_messagesSuppressed = suppressed; }

protected:
  /** Names the widgets for assistive technology before the control is first laid out, and again in a new language. */
  bool event(QEvent* event) override;

  /** True from the start of the base's destruction on: no bag call may follow. */
  bool isClosing() const;
  /**
   * Whether a write or a change of the control's own widgets is in progress:
   * what the widgets signal now is not the user editing.
   */
  bool isApplying() const { return m_applying; }
  /**
   * Takes the control out of the Tab order while it has nothing to offer
   * (a row without buttons), and gives it back the policy it had after.
   */
  void setTabStop(bool hasTarget);

  bool m_isPropertyElement = false;
  int m_index = -1;
  unsigned long m_element = 0;
  PropBag* m_bag = nullptr;
  int m_options = 0;
  /** Held by a WriteScope or a WidgetUpdateScope, so a write cannot re-enter itself. */
  bool m_applying = false;
  bool m_messagesSuppressed = false;
  bool m_actionsToolbarDisabled = false;
  QPointer<PropUiActionToolButtonsCtrl> m_actionsToolbar;
  PropUiQEventFilter* m_focusReactorFilter = nullptr;
  PropUiQEventFilter* m_toolTipFilter = nullptr;
  /** Null until getFormatter or setFormatter: read it through getFormatter. */
  PropUiQFormatter* m_formatter = nullptr;

private:
  friend class PropUiQControlPrivate;
  /** Made when first needed; see PropUiQControl_p.h. */
  PropUiQControlPrivate* d = nullptr;
  PropUiQControlPrivate* ensurePrivate();

  bool postMessage(const OdString& message, bool error);
  CommitResult commit(unsigned long element, bool writeElement, const PropVariant& value, RefusalMessage refusal);
  /** Makes every child unable to reach this control or the bag, so it can go quietly. */
  void disarmChildren();
  /** Whether the focus is, or comes back to, this control or a widget inside it. */
  bool holdsFocus() const;
  void adopt(QLayout* layout);
  /** Refreshes the tool tip; makes the filter once the item has a description. */
  void updateToolTip();
  /** Removes what an earlier setupUi built; the formatter and the binding stay. */
  void clearBuiltUi();
};
