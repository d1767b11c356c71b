#pragma once

#include "OdString.h"
#include "PropUiOptions.h"
#include "PropUiQWidget.h"
#include <QPointer>
#include <QVector>
#include <memory>

class PropUiAccessibility;
class PropUiActionToolButtonsCtrl;
class PropUiQEventFilter;
class PropUiQFormatter;
class PropVariant;
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
  /** What a commit writes. */
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
   * Holds the control's applying flag for one scope. A scope opened while the
   * flag is already held does not enter: a write that moves the focus, or a
   * refresh that changes the widget, must not start another write. Nor does
   * one opened while the control's window is being taken down: the focus
   * leaving then is not the user finishing an edit.
   */
  class PROPWIDGETS_EXPORT ApplyingScope
  {
  public:
    explicit ApplyingScope(PropUiQControl* control);
    ~ApplyingScope();
    ApplyingScope(const ApplyingScope&) = delete;
    ApplyingScope& operator=(const ApplyingScope&) = delete;
    /** False when the flag was held already by an outer scope. */
    bool entered() const { return m_entered; }

  private:
    PropUiQControl* m_control;
    /** This scope took the flag, and gives it back. */
    bool m_held;
    bool m_entered;
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
  bool isClosing() const { return m_closing; }

  bool m_isPropertyElement = false;
  int m_index = -1;
  unsigned long m_element = 0;
  PropBag* m_bag = nullptr;
  int m_options = 0;
  /** Set while a write is in progress, so a write cannot re-enter itself. */
  bool m_applying = false;
  bool m_messagesSuppressed = false;
  bool m_actionsToolbarDisabled = false;
  QPointer<PropUiActionToolButtonsCtrl> m_actionsToolbar;
  PropUiQEventFilter* m_focusReactorFilter = nullptr;
  PropUiQEventFilter* m_toolTipFilter = nullptr;
  PropUiQFormatter* m_formatter = nullptr;

private:
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

  /** Widgets asking for the tool tip before the item had a description. */
  QVector<QPointer<QWidget> > m_toolTipWidgets;
  bool m_closing = false;
  bool m_setUp = false;
  /** Names and describes the focusable children for assistive technology. */
  std::unique_ptr<PropUiAccessibility> m_accessibility;
};
