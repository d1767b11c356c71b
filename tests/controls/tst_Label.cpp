#include "HostApplication.h"
#include "PropUiQLabel.h"
#include "RecordingBag.h"
#include <QLabel>
#include <QtTest>

class TestLabel : public QObject
{
  Q_OBJECT

private slots:
  void captionAndToolTipComeFromTheBag()
  {
    RecordingBag bag;
    const int item = bag.addItem(QStringLiteral("Radius"));
    bag.item(item).description = QStringLiteral("Radius of the hub circle");
    PropUiQLabel label;
    label.setPropBagItem(&bag, item);
    QVERIFY(label.setupUi());
    QCOMPARE(label.findChild<QLabel*>(QStringLiteral("label"))->text(), QStringLiteral("Radius"));
    QCOMPARE(label.toolTip(), QStringLiteral("<h4>Radius</h4>Radius of the hub circle"));

    bag.item(item).hasDescription = false;
    label.setText(QStringLiteral("Outer radius"));
    QCOMPARE(label.toolTip(), QStringLiteral("Outer radius"));
  }

  // Elided, a caption shows its start at the left; whole again, it goes back to the host's side.
  // A caption narrowed while out of sight is fitted once it comes into view.
  void narrowCaptionsAreElidedAndRestored_data()
  {
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("alignment");
    QTest::addColumn<QString>("away");
    const int right = int(Qt::AlignRight | Qt::AlignVCenter);
    QTest::newRow("host aligns right") << int(HostApplication::kLabelsRight) << right << QString();
    QTest::newRow("host aligns left") << int(HostApplication::kLabelsLeft) << int(Qt::AlignLeft | Qt::AlignVCenter)
                                      << QString();
    QTest::newRow("narrowed hidden") << int(HostApplication::kLabelsRight) << right << QStringLiteral("hidden");
    QTest::newRow("narrowed scrolled away") << int(HostApplication::kLabelsRight) << right << QStringLiteral("scrolled");
  }

  void narrowCaptionsAreElidedAndRestored()
  {
    QFETCH(int, mode);
    QFETCH(int, alignment);
    QFETCH(QString, away);
    hostApplication()->setLabelAlignment(mode);
    RecordingBag bag;
    const int item = bag.addItem(QStringLiteral("Extrusion thickness of the outline"));
    QWidget window;
    window.resize(400, 100);
    auto* label = new PropUiQLabel(&window);
    label->setPropBagItem(&bag, item);
    label->setupUi();
    label->setGeometry(0, 0, 400, 30);
    auto* inner = label->findChild<QLabel*>();
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCOMPARE(inner->text(), label->text());
    QCOMPARE(int(inner->alignment()), alignment);

    if (away == QLatin1String("hidden"))
      label->hide();
    else if (away == QLatin1String("scrolled"))
      label->move(0, 500);
    label->resize(80, 30);
    QCoreApplication::processEvents();
    label->show();
    label->move(0, 0);
    QTRY_VERIFY(inner->text().endsWith(QChar(0x2026)));
    QVERIFY(label->text().startsWith(inner->text().chopped(1)));
    QCOMPARE(int(inner->alignment()), int(Qt::AlignLeft | Qt::AlignVCenter));

    label->resize(400, 30);
    QTRY_COMPARE(inner->text(), label->text());
    QCOMPARE(int(inner->alignment()), alignment);
    hostApplication()->setLabelAlignment(HostApplication::kLabelsRight);
  }
};

QTEST_MAIN(TestLabel)
#include "tst_Label.moc"
