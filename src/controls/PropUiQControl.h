#pragma once

#include "OdString.h"
#include "PropUiQWidget.h"
#include <QPointer>

class PropUiActionToolButtonsCtrl;
class PropUiQEventFilter;
class PropUiQFormatter;
class PropVariant;

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
  /** Option bit: refresh the tool tip from the item's description. */
  static constexpr int kToolTipFilter = 0x40;
  /** Option bit: the control's buttons take no focus (set on the actions toolbar). */
  static constexpr int kNoFocusButtons = 0x1000000;

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
  void onUpdateDisplay() override;
  bool isVaries() const override;
  void setVaries(bool varies) override;

  bool isPropertyElement() const { return m_isPropertyElement; }
  PropBag* propBag() const { return m_bag; }
  int itemIndex() const { return m_index; }
  unsigned long element() const { return m_element; }

  PropUiQFormatter* getFormatter() const;
  /** Replaces the pointer only; the previous formatter stays a child of the control. */
  void setFormatter(PropUiQFormatter* formatter);

  /** Rebuilds the item's actions toolbar; null when the item has no actions. */
  PropUiActionToolButtonsCtrl* createActionsToolBar();

  /** Posts the bag's message for after the current event; false when nothing is shown. */
  bool showInfoMessage(const OdString& message);
  bool showErrorMessage(const OdString& message);

  void useFocusReactor(QWidget* widget);
  void useFocusRedirect(QWidget* widget, QWidget* target);
  void useToolTipFilter(QWidget* widget);

protected:
  /** Reads the bound element or, for a whole-item binding, the item. */
  bool readValue(PropVariant& value) const;
  /** Writes the bound element or item. */
  bool writeValue(const PropVariant& value) const;
  /** Asks the bag to validate, then writes; a refusal's message is shown as an error. True when written. */
  bool validateAndWrite(const PropVariant& value);

  /** Whether messages are posted at all (false while the editor is losing focus). */
  bool messagesSuppressed() const { return m_messagesSuppressed; }
  void setMessagesSuppressed(bool suppressed) { m_messagesSuppressed = suppressed; }

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
};
