#include "ChooserCatcher.h"
#include "ControlWindow.h"
#include "EveryKind.h"
#include "MessageCatcher.h"
#include "PropUiQControl.h"
#include "PropUiQFormatter.h"
#include "RichItem.h"
#include "RunningModule.h"
#include <QtTest>
#include <QtWidgets>

namespace
{

/** The focusable child a user would click into first. */
QWidget* firstEditor(QWidget* control)
{
  for (QWidget* child : control->findChildren<QWidget*>())
    if (child->isVisible() && child->isEnabled() && (child->focusPolicy() & Qt::ClickFocus))
      return child;
  return nullptr;
}

/** The shape of what a set-up built: every child's class and name, in order. */
QStringList shapeOf(QWidget* control)
{
  QStringList shape;
  // The formatter is the control's, not the set-up's: made when first asked, it outlives a rebuild.
  for (QObject* child : control->findChildren<QObject*>())
    if (!qobject_cast<PropUiQFormatter*>(child))
      shape << QString::fromLatin1(child->metaObject()->className()) + QLatin1Char(':') + child->objectName();
  return shape;
}

QStringList g_warnings;
void collectWarnings(QtMsgType type, const QMessageLogContext&, const QString& text)
{
  if (type != QtDebugMsg && type != QtInfoMsg)
    g_warnings << text;
}

} // namespace

class TestControlLifecycle : public QObject
{
  Q_OBJECT
  RunningModule module;

private slots:
  void deletionMidEditTouchesNoBag_data() { addEveryKindRows(); }

  // A host rebuilds its panel while the user types: whatever way the control
  // goes, the half-typed edit is dropped and the bag hears nothing more.
  void deletionMidEditTouchesNoBag()
  {
    QFETCH(OdGUID, guid);
    MessageCatcher messages;
    ChooserCatcher choosers;
    for (const char* way : {"delete", "deleteLater", "parent", "window", "own window"})
    {
      RecordingBag bag;
      const int item = addRichItem(bag, QStringLiteral("Rich"));
      PropUiQWidget* control = boundKind(guid, bag, item);
      if (!control)
        QSKIP("kind not registered");
      const QString how = QString::fromLatin1(way);
      QPointer<ControlWindow> watch;
      if (how == QLatin1String("own window"))
      {
        // A floating editor nobody entered: hiding it as it goes tells its children.
        control->show();
        QVERIFY(QTest::qWaitForWindowExposed(control));
        if (QWidget* focus = control->focusWidget())
          focus->clearFocus();
        bag.clearCalls();
        delete control;
        QCoreApplication::processEvents();
        QVERIFY2(bag.calls.isEmpty(), qPrintable(how + QStringLiteral(": ") + bag.calls.join(QLatin1Char(' '))));
        continue;
      }
      auto* window = new ControlWindow(control);
      QVERIFY(window->showActive());
      if (QWidget* editor = firstEditor(control))
      {
        editor->setFocus(Qt::MouseFocusReason);
        QTest::keyClicks(editor, QStringLiteral("12"));
      }
      bag.clearCalls();
      watch = window;
      if (how == QLatin1String("delete"))
        delete control;
      else if (how == QLatin1String("deleteLater"))
        control->deleteLater();
      else if (how == QLatin1String("parent"))
        delete window;
      else
      {
        // Closing is the user leaving the field: that may commit. Destruction may not.
        window->setAttribute(Qt::WA_DeleteOnClose);
        window->close();
        QCoreApplication::processEvents();
        bag.clearCalls();
      }
      QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
      QCoreApplication::processEvents();
      QVERIFY2(bag.calls.isEmpty(), qPrintable(how + QStringLiteral(": ") + bag.calls.join(QLatin1Char(' '))));
      delete watch.data();
    }
  }

  void secondSetupRebuildsOnce_data()
  {
    addEveryKindRows();
    // The multi-line forms, with the group selector focused during the rebuild.
    QTest::newRow("multi-line double") << PropUiGuidDouble;
    QTest::newRow("multi-line integer") << PropUiGuidInteger;
  }

  void secondSetupRebuildsOnce()
  {
    QFETCH(OdGUID, guid);
    const int options = QByteArray(QTest::currentDataTag()).startsWith("multi-line") ? PropUiOption::kMultiLine : 0;
    RecordingBag bag;
    const int item = addRichItem(bag, QStringLiteral("Rich"));
    PropUiQWidget* control = boundKind(guid, bag, item, options);
    if (!control)
      QSKIP("kind not registered");
    ControlWindow window(control);
    QVERIFY(window.showActive());
    const QStringList first = shapeOf(control);
    const int controlOptions = control->getOptions();
    // The rebuild happens while the user is in the control.
    if (QWidget* editor = firstEditor(control))
      editor->setFocus(Qt::MouseFocusReason);

    g_warnings.clear();
    const QtMessageHandler previous = qInstallMessageHandler(collectWarnings);
    control->setupUi();
    control->updateUi();
    control->updateData();
    qInstallMessageHandler(previous);

    QVERIFY2(g_warnings.isEmpty(), qPrintable(g_warnings.join(QLatin1Char('\n'))));
    QCOMPARE(shapeOf(control), first);
    QCOMPARE(control->getOptions(), controlOptions);
    if (auto* bound = qobject_cast<PropUiQControl*>(control))
    {
      QCOMPARE(bound->propBag(), static_cast<PropBag*>(&bag));
      QCOMPARE(bound->itemIndex(), item);
    }
  }

  // Hiding the window is not destroying it: the edit is committed once the
  // window is gone from the screen, and the control stays ready for more.
  void hidingTheWindowMidEditCommitsAfterwards()
  {
    RecordingBag bag;
    const int item = bag.addItem(QStringLiteral("Radius"), realValue(2));
    ControlWindow window(boundKind(PropUiGuidDouble, bag, item));
    QVERIFY(window.showActive());
    auto* edit = window.findChild<QLineEdit*>(QStringLiteral("edit"));
    edit->setFocus(Qt::MouseFocusReason);
    edit->selectAll();
    QTest::keyClicks(edit, QStringLiteral("7"));
    window.hide();
    QTRY_COMPARE(bag.written.size(), 1);
    QCOMPARE(bag.written[0].getDouble(), 7.0);

    QVERIFY(window.showActive());
    edit->setFocus(Qt::MouseFocusReason);
    edit->selectAll();
    QTest::keyClicks(edit, QStringLiteral("8"));
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(bag.written.size(), 2);
  }

  void messageOfADeletedControlIsDropped()
  {
    MessageCatcher messages;
    RecordingBag bag;
    const int item = bag.addItem(QStringLiteral("Radius"), realValue(2));
    bag.item(item).acceptValidate = false;
    bag.item(item).validateMessage = QStringLiteral("Must be positive.");
    PropUiQWidget* control = boundKind(PropUiGuidDouble, bag, item);
    ControlWindow window(control);
    QVERIFY(window.showActive());
    auto* edit = control->findChild<QLineEdit*>(QStringLiteral("edit"));
    edit->setFocus(Qt::MouseFocusReason);
    QTest::keyClicks(edit, QStringLiteral("-1"));
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(bag.count(QStringLiteral("validate")), 1);
    delete control;
    QCoreApplication::processEvents();
    QVERIFY(messages.shown.isEmpty());
  }
};

QTEST_MAIN(TestControlLifecycle)
#include "tst_ControlLifecycle.moc"
