#include "HostQtStyle.h"
#include "HostQtStyleManager.h"
#include "HostVisualManager.h"
#include "OdStringQt.h"
#include "QHostCheckBox.h"
#include "QHostComboBox.h"
#include "QHostLineEdit.h"
#include "QHostMessageBalloon.h"
#include "QHostMessageBoxOd.h"
#include "QHostSpinBox.h"
#include "QHostTextEdit.h"
#include "QHostUiChoosers.h"
#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <QtTest>

namespace
{

/** Shows and activates the window; false when the platform would not. */
bool showActive(QWidget& window)
{
  window.show();
  window.activateWindow();
  return QTest::qWaitForWindowActive(&window);
}

/** The colour the widget's background shows at its centre, where no caption is drawn. */
QColor backgroundAtCentre(QWidget& widget)
{
  const QImage image = widget.grab().toImage();
  return image.pixelColor(image.width() / 2, image.height() / 2);
}

/** A window with two fields, the first one focused. */
struct TwoFields
{
  TwoFields()
  {
    auto* layout = new QVBoxLayout(&window);
    first = new QLineEdit(&window);
    second = new QLineEdit(&window);
    layout->addWidget(first);
    layout->addWidget(second);
    window.resize(300, 200);
  }
  bool showWithFocusInFirst()
  {
    if (!showActive(window))
      return false;
    first->setFocus();
    return first->hasFocus();
  }
  QWidget window;
  QLineEdit* first = nullptr;
  QLineEdit* second = nullptr;
};

} // namespace

class TestHostWidgets : public QObject
{
  Q_OBJECT

private slots:
  // The library turns the wheel off on its spin boxes; a host's own spin box keeps it until asked.
  void theWheelTurnsASpinBoxUntilItIsTurnedOff()
  {
    QWidget window;
    host_qt_ui_core::QHostSpinBox spin(&window);
    spin.setRange(0, 10);
    spin.setValue(5);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    spin.setFocus();
    const auto wheelDown = [&spin]() {
      QWheelEvent wheel(QPointF(5, 5), spin.mapToGlobal(QPoint(5, 5)), QPoint(), QPoint(0, -120), Qt::NoButton,
                        Qt::NoModifier, Qt::NoScrollPhase, false);
      QCoreApplication::sendEvent(&spin, &wheel);
    };
    wheelDown();
    QCOMPARE(spin.value(), 4);
    spin.disableMouseWheel(true);
    wheelDown();
    QCOMPARE(spin.value(), 4);
  }

  // The kept index must follow every way the entries change, and still agree with the model's own search.
  void aComboFindsItsEntriesAfterEveryChange()
  {
    host_qt_ui_core::QHostComboBox combo;
    const QStringList probes{QStringLiteral("solid"),  QStringLiteral("DASHED"),  QStringLiteral("Dots"),
                             QStringLiteral("Straße"), QStringLiteral("STRASSE"), QString(),
                             QStringLiteral("Hidden")};
    auto agrees = [&](const char* step) {
      for (const QString& probe : probes)
        if (combo.findTextFast(probe) != combo.findText(probe, Qt::MatchFixedString))
          return QString::fromLatin1("%1: %2").arg(QLatin1String(step), probe);
      for (qulonglong key = 0; key < 6; ++key)
        if (combo.findKeyFast(key) != combo.findData(QVariant::fromValue(key), Qt::UserRole))
          return QString::fromLatin1("%1: key %2").arg(QLatin1String(step)).arg(key);
      return QString();
    };
    combo.addItem(QStringLiteral("Solid"), QVariant::fromValue<qulonglong>(1));
    combo.addItem(QStringLiteral("Dashed"), QVariant::fromValue<qulonglong>(2));
    combo.addItem(QStringLiteral("STRASSE"), QVariant::fromValue<qulonglong>(3));
    QCOMPARE(agrees("filled"), QString());
    QCOMPARE(combo.findTextFast(QStringLiteral("dashed")), 1);
    combo.insertItem(0, QStringLiteral("dashed"), QVariant::fromValue<qulonglong>(4));
    QCOMPARE(agrees("an equal text inserted first"), QString());
    QCOMPARE(combo.findTextFast(QStringLiteral("Dashed")), 0);
    combo.addItem(QString()); // a temporary entry: no text of its own yet, no key
    QCOMPARE(agrees("an empty entry"), QString());
    combo.setItemText(2, QStringLiteral("Hidden"));
    combo.setItemData(2, QVariant::fromValue<qulonglong>(5), Qt::UserRole);
    QCOMPARE(agrees("renamed"), QString());
    QCOMPARE(combo.findKeyFast(5), 2);
    combo.setItemIcon(2, QIcon());
    combo.removeItem(0);
    QCOMPARE(agrees("removed"), QString());
    QCOMPARE(combo.findKeyFast(4), -1);
    combo.clear();
    QCOMPARE(agrees("cleared"), QString());
    QCOMPARE(combo.findTextFast(QStringLiteral("Solid")), -1);
    auto* other = new QStandardItemModel(&combo);
    other->appendRow(new QStandardItem(QStringLiteral("Dots")));
    combo.setModel(other);
    QCOMPARE(agrees("another model"), QString());
    QCOMPARE(combo.findTextFast(QStringLiteral("dots")), 0);
  }

  void doubleClickSelectsTheWholeText()
  {
    host_qt_ui_core::QHostLineEdit edit;
    edit.setText(QStringLiteral("front left hub"));
    edit.enableSelectOnDClick();
    QTest::mouseDClick(&edit, Qt::LeftButton, Qt::NoModifier, QPoint(4, edit.height() / 2));
    QCOMPARE(edit.selectedText(), edit.text());
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
    QVERIFY(showActive(window));
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

  void checkedButtonsStandApart_data()
  {
    QTest::addColumn<int>("theme");
    QTest::addColumn<bool>("tool");
    for (int theme : {int(HostQtStyleManager::Dark), int(HostQtStyleManager::Light)})
      for (bool tool : {false, true})
        QTest::addRow("%s, %s", theme == HostQtStyleManager::Dark ? "dark" : "light", tool ? "tool button" : "push button")
          << theme << tool;
  }

  // Measured on what is drawn, so the base style's gradient and frame count.
  void checkedButtonsStandApart()
  {
    QFETCH(int, theme);
    QFETCH(bool, tool);
    hostGetQtStyleManager()->setTheme(theme);
    QVERIFY(qobject_cast<HostQtStyle*>(QApplication::style()));
    QScopedPointer<QAbstractButton> button(tool ? static_cast<QAbstractButton*>(new QToolButton)
                                                : static_cast<QAbstractButton*>(new QPushButton));
    button->setCheckable(true);
    button->resize(48, 28);
    const QColor unchecked = backgroundAtCentre(*button);
    button->setChecked(true);
    const QColor checked = backgroundAtCentre(*button);
    const double ratio = HostQtStyle::contrastRatio(checked, unchecked);
    QVERIFY2(ratio >= HostQtStyle::kCheckedContrast,
             qPrintable(QStringLiteral("%1 against %2: %3:1").arg(checked.name(), unchecked.name()).arg(ratio)));

    // The caption reads on the checked colour at least as well as the background stands apart.
    const QPalette palette = QApplication::palette();
    QVERIFY(HostQtStyle::contrastRatio(HostQtStyle::checkedButtonTextColor(palette),
                                       HostQtStyle::checkedButtonColor(palette)) >= HostQtStyle::kCheckedContrast);
  }

  void aNoteIsABalloonAtTheFieldThatAClickCloses()
  {
    TwoFields fields;
    QVERIFY(fields.showWithFocusInFirst());

    // WHEN the host is told something while the first field has the focus
    const int answer = host_qt_ui::QHostMessageBoxOd::information(toOdString(QStringLiteral("Radius must be positive.")));

    // THEN a balloon hangs below that field, and the focus stays in it
    QCOMPARE(answer, int(host_qt_ui::QHostMessageBoxOd::Ok));
    QPointer<host_qt_ui::QHostMessageBalloon> balloon = host_qt_ui::QHostMessageBalloon::current();
    QVERIFY(balloon);
    QTRY_VERIFY(balloon->isVisible());
    QCOMPARE(balloon->field(), static_cast<QWidget*>(fields.first));
    QCOMPARE(balloon->text(), QStringLiteral("Radius must be positive."));
    const QRect field(fields.first->mapToGlobal(QPoint(0, 0)), fields.first->size());
    const QRect at = balloon->frameGeometry();
    QVERIFY(balloon->isBelowField());
    QCOMPARE(at.top(), field.bottom() + 1);
    QVERIFY(at.left() >= field.left() && at.left() < field.center().x());
    QVERIFY(fields.first->hasFocus());
    QCOMPARE(QApplication::activeWindow(), &fields.window);

    // WHEN the user clicks into the field, THEN the balloon goes and the field keeps the focus
    QTest::mouseClick(fields.first, Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    QTRY_VERIFY(!balloon);
    QVERIFY(fields.first->hasFocus());
  }

  void aBalloonGoesWithItsFieldAndOneAtATime()
  {
    TwoFields fields;
    QVERIFY(fields.showWithFocusInFirst());
    QPointer<host_qt_ui::QHostMessageBalloon> first =
      host_qt_ui::QHostMessageBalloon::showAt(fields.first, QStringLiteral("one"), true);
    QPointer<host_qt_ui::QHostMessageBalloon> second =
      host_qt_ui::QHostMessageBalloon::showAt(fields.second, QStringLiteral("two"), false);
    QTRY_VERIFY(!first);
    QCOMPARE(host_qt_ui::QHostMessageBalloon::current(), second.data());
    delete fields.second;
    QTRY_VERIFY(!second);
    QVERIFY(!host_qt_ui::QHostMessageBalloon::showAt(nullptr, QStringLiteral("nowhere"), true));
  }

  void thePaletteWorksFromKeysAndClicks_data()
  {
    QTest::addColumn<QVector<int> >("keys");
    QTest::addColumn<QPoint>("click"); // in the palette, after the keys; none when null
    QTest::addColumn<int>("picked"); // the colour's number; 0 when nothing is
    QTest::newRow("arrows, then Enter") << QVector<int>{Qt::Key_Right, Qt::Key_Down, Qt::Key_Return} << QPoint() << 1 + 1 + 24;
    QTest::newRow("End and back, then Space") << QVector<int>{Qt::Key_End, Qt::Key_Left, Qt::Key_Space} << QPoint() << 254;
    QTest::newRow("against the edges, then Enter")
      << QVector<int>{Qt::Key_Home, Qt::Key_Up, Qt::Key_Left, Qt::Key_Enter} << QPoint() << 1;
    QTest::newRow("Escape") << QVector<int>{Qt::Key_Right, Qt::Key_Escape} << QPoint() << 0;
    QTest::newRow("a click on the third cell") << QVector<int>() << QPoint(2 * 14 + 7, 7) << 3;
  }

  // The real, modal chooser, answered by keys and clicks from inside its own event loop.
  void thePaletteWorksFromKeysAndClicks()
  {
    QFETCH(QVector<int>, keys);
    QFETCH(QPoint, click);
    QFETCH(int, picked);
    OdCmColor colour;
    colour.setColorIndex(1);
    QString focusedAtOpen, currentCell;
    QTimer user;
    user.setInterval(10);
    QObject::connect(&user, &QTimer::timeout, [&]() {
      const QPointer<QWidget> dialog = QApplication::activeModalWidget();
      QWidget* focus = QApplication::focusWidget();
      if (!dialog || !focus || focus->window() != dialog)
        return;
      user.stop();
      focusedAtOpen = focus->objectName();
      QAccessibleInterface* cell = QAccessible::queryAccessibleInterface(focus)->focusChild();
      currentCell = cell ? cell->text(QAccessible::Name) : QString();
      for (int key : keys)
        QTest::keyClick(focus, Qt::Key(key));
      if (!click.isNull())
        QTest::mouseClick(focus, Qt::LeftButton, Qt::NoModifier, click);
      if (dialog && dialog->isVisible())
        dialog->close();
    });
    // GIVEN the colour chooser opened on colour 1, WHEN keys alone move over the palette and pick or cancel
    user.start();
    const bool chosen = host_qt_ui::QHostUiChoosers::chooseColor(nullptr, colour);
    user.stop();
    // THEN the palette had the focus, on the colour there was, and what the keys reached is picked, or nothing is
    QCOMPARE(focusedAtOpen, QStringLiteral("palette"));
    QCOMPARE(currentCell, QStringLiteral("Colour 1 (Red)"));
    QCOMPARE(chosen, picked > 0);
    QCOMPARE(int(colour.colorIndex()), picked > 0 ? picked : 1);
  }

  void aHostCanStillAskForAModalBox()
  {
    TwoFields fields;
    QVERIFY(fields.showWithFocusInFirst());
    host_qt_ui::QHostMessageBoxOd::setPresentation(host_qt_ui::QHostMessageBoxOd::ModalBox);
    QString shownText;
    // The box is modal: it is read and closed from inside its own event loop.
    QTimer closer;
    closer.setInterval(10);
    QObject::connect(&closer, &QTimer::timeout, [&shownText]() {
      for (QWidget* top : QApplication::topLevelWidgets())
        if (auto* box = qobject_cast<QMessageBox*>(top))
          if (box->isVisible())
          {
            shownText = box->text();
            box->done(QMessageBox::Ok);
          }
    });
    closer.start();
    host_qt_ui::QHostMessageBoxOd::critical(toOdString(QStringLiteral("Locked.")));
    closer.stop();
    host_qt_ui::QHostMessageBoxOd::setPresentation(host_qt_ui::QHostMessageBoxOd::Balloon);
    QCOMPARE(shownText, QStringLiteral("Locked."));
    QVERIFY(!host_qt_ui::QHostMessageBalloon::current());
  }
};

QTEST_MAIN(TestHostWidgets)
#include "tst_HostWidgets.moc"
