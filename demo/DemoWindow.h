#pragma once

#include "DemoGridGroup.h"
#include <QPointer>
#include <QVector>
#include <QWidget>

class DemoBag;
class PropUiQWidget;
class QGridLayout;
class QLabel;
class QPlainTextEdit;
class QTreeView;
class PropUiQFormatter;

/**
 * A property panel as a host would build it: one row per item of the bag,
 * the item's caption and the control the registry makes for it, with a
 * switch for a mixed selection, a theme choice and a log of the writes.
 */
class DemoWindow : public QWidget
{
  Q_OBJECT

public:
  explicit DemoWindow(DemoBag* bag, QWidget* parent = nullptr);

  void setMixed(bool mixed);
  void setTheme(int theme);
  /** Lays the whole panel out at its natural height and saves it as a picture. */
  bool saveScreenshot(const QString& path);
  void appendLog(const QString& line, bool accepted);
  /** Makes a few edits as a user would, some of which the bag refuses, so that the log shows them. */
  void demonstrateEdits();
  void countRedraw();
  /** Makes every control re-read its item once the current event is over. */
  void scheduleRefresh();

private:
  void buildRows();
  void buildGrid();
  void refresh();
  void refreshControl(PropUiQWidget* control);
  void showRedraws();
  PropUiQWidget* controlOf(const QString& caption) const;

  DemoBag* m_bag;
  QPointer<QWidget> m_rows;
  QGridLayout* m_grid = nullptr;
  QVector<QPointer<PropUiQWidget> > m_controls;
  QPlainTextEdit* m_log = nullptr;
  QLabel* m_status = nullptr;
  class QCheckBox* m_mixedSwitch = nullptr;
  class QComboBox* m_themeBox = nullptr;
  DemoGridGroup m_gridGroup;
  QTreeView* m_gridView = nullptr;
  PropUiQFormatter* m_gridFormatter = nullptr;
  int m_redraws = 0;
  bool m_refreshPending = false;
};
