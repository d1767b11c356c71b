#include "HostQtStyleManager.h"
#include "HostVisualManager.h"
#include "QHostCheckBox.h"
#include "QHostComboBox.h"
#include "QHostLineEdit.h"
#include "QHostSpinBox.h"
#include "QHostTextEdit.h"
#include <QApplication>
#include <QClipboard>
#include <QCompleter>
#include <QLineEdit>
#include <QtTest>

namespace
{

void wheelDown(QWidget* widget)
{
  QWheelEvent wheel(QPointF(5, 5), widget->mapToGlobal(QPoint(5, 5)), QPoint(), QPoint(0, -120), Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(widget, &wheel);
}

} // namespace

class TestHostWidgets : public QObject
{
  Q_OBJECT

private slots:
  void theWheelCanBeLeftToThePanel()
  {
    QWidget window;
    host_qt_ui_core::QHostSpinBox spin(&window);
    spin.setRange(0, 10);
    spin.setValue(5);
    host_qt_ui_core::QHostComboBox combo(&window);
    combo.addItems({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    spin.setFocus();
    wheelDown(&spin);
    QCOMPARE(spin.value(), 4); // the wheel works until it is disabled
    spin.disableMouseWheel(true);
    combo.disableMouseWheel(true);
    wheelDown(&spin);
    combo.setFocus();
    wheelDown(&combo);
    QCOMPARE(spin.value(), 4);
    QCOMPARE(combo.currentIndex(), 0);
  }

  void completingComboNeverInserts()
  {
    QWidget window;
    host_qt_ui_core::QHostComboBox combo(&window);
    combo.addItems({QStringLiteral("Solid"), QStringLiteral("Dashed")});
    combo.setEditableWithCompleter(true);
    QVERIFY(combo.isEditable());
    QVERIFY(combo.completer());
    QCOMPARE(combo.completer()->caseSensitivity(), Qt::CaseInsensitive);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    combo.setFocus();
    combo.lineEdit()->selectAll();
    QTest::keyClicks(&combo, QStringLiteral("Zigzag"));
    QTest::keyClick(&combo, Qt::Key_Return);
    QCOMPARE(combo.count(), 2);
  }

  void doubleClickSelectsTheWholeText()
  {
    host_qt_ui_core::QHostLineEdit edit;
    edit.setText(QStringLiteral("front left hub"));
    edit.enableSelectOnDClick();
    QTest::mouseDClick(&edit, Qt::LeftButton, Qt::NoModifier, QPoint(4, edit.height() / 2));
    QCOMPARE(edit.selectedText(), edit.text());

    edit.setAutoChangePlaceholderTextColor(true);
    QColor expected = edit.palette().color(QPalette::Text);
    expected.setAlpha(128);
    QCOMPARE(edit.palette().color(QPalette::PlaceholderText), expected);
  }

  void pastedLinesAreFlattened()
  {
    QCOMPARE(host_qt_ui::QHostTextEdit::flattened(QStringLiteral("a\r\nb\tc\n\nd")), QStringLiteral("a b c d"));
    host_qt_ui::QHostTextEdit edit;
    edit.setTextOptions(0x40 | 0x2 | 0x10000);
    QCOMPARE(edit.textOptions(), 0x2);
    QApplication::clipboard()->setText(QStringLiteral("Bore widened\nafter the fit test"));
    if (QApplication::clipboard()->text() != QStringLiteral("Bore widened\nafter the fit test"))
      QSKIP("no clipboard on this platform");
    QTest::keySequence(&edit, QKeySequence::Paste);
    QCOMPARE(edit.text(), QStringLiteral("Bore widened after the fit test"));
  }

  // Styles draw the focus frame around the caption; a box without one still shows it has the focus.
  void captionlessCheckBoxShowsItsFocus()
  {
    QWidget window;
    auto* box = new host_qt_ui_core::QHostCheckBox(&window);
    auto* other = new QLineEdit(&window);
    other->move(0, 40);
    box->resize(box->sizeHint());
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    other->setFocus();
    QTRY_VERIFY(other->hasFocus());
    const QImage unfocused = box->grab().toImage();
    box->setFocus(Qt::TabFocusReason);
    QTRY_VERIFY(box->hasFocus());
    QVERIFY(box->grab().toImage() != unfocused);
  }

  void switchModeIsAToggleSwitch()
  {
    host_qt_ui_core::QHostCheckBox box;
    box.setText(QStringLiteral("Snap"));
    box.resize(box.sizeHint());
    const QImage plain = box.grab().toImage();
    box.enableSwitchMode(true);
    box.resize(box.sizeHint());
    const QImage off = box.grab().toImage();
    QVERIFY(off != plain);
    QTest::mouseClick(&box, Qt::LeftButton, Qt::NoModifier, QPoint(4, box.height() / 2));
    QVERIFY(box.isChecked());
    QVERIFY(box.grab().toImage() != off);
    QVERIFY(box.sizeHint().width() > box.sizeHint().height() * 2);
  }

  void themesSwitchPaletteAndColours()
  {
    HostQtStyleManager* style = hostGetQtStyleManager();
    QSignalSpy changed(style, &HostQtStyleManager::themeChanged);
    style->setTheme(0);
    QCOMPARE(style->theme(), 0);
    QVERIFY(hostVisualManager()->isDarkTheme());
    QVERIFY(QApplication::palette().color(QPalette::Window).lightness() < 100);
    const unsigned int darkText = hostVisualManager()->textColor(0);
    style->setTheme(1);
    QVERIFY(!hostVisualManager()->isDarkTheme());
    QVERIFY(QApplication::palette().color(QPalette::Window).lightness() > 150);
    QVERIFY(hostVisualManager()->textColor(0) != darkText);
    // Light text on dark, dark text on light: red is the lowest byte.
    QVERIFY((darkText & 0xFF) > 0x80);
    QVERIFY((hostVisualManager()->textColor(0) & 0xFF) < 0x80);
    QCOMPARE(changed.count(), 2);
  }
};

QTEST_MAIN(TestHostWidgets)
#include "tst_HostWidgets.moc"
