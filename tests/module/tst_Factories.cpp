#include "EveryKind.h"
#include "PropUiGuids.h"
#include "PropUiQAngleCtrl.h"
#include "PropUiQDistanceCtrl.h"
#include "PropUiQDoubleCtrl.h"
#include "PropUiQIntegerCtrl.h"
#include "PropUiQLabel.h"
#include "PropUiQMLineEdit.h"
#include "PropUiQSliderCtrl.h"
#include "PropUiQTextCtrl.h"
#include "PropUiRegistry.h"
#include "RunningModule.h"
#include <QtTest>


namespace
{

QString classOf(const QScopedPointer<PropUiQWidget>& widget)
{
  return widget ? QString::fromLatin1(widget->metaObject()->className()) : QStringLiteral("(none)");
}

template <class T>
bool isA(const QScopedPointer<PropUiQWidget>& widget)
{
  return dynamic_cast<T*>(widget.data()) != nullptr;
}

} // namespace

class TestFactories : public QObject
{
  Q_OBJECT
  RunningModule module;

private slots:
  // Every kind the library names has a factory; the rows below pin the option rules by example.
  void everyKindIsRegistered_data() { addEveryKindRows(); }
  void everyKindIsRegistered()
  {
    QFETCH(OdGUID, guid);
    QScopedPointer<PropUiQWidget> widget(propUiCreateWidget(guid, 0));
    QScopedPointer<PropUiQWidget> editor(propUiCreateEditor(guid, 0));
    QVERIFY(widget && editor);
  }

  void widgetForms_data()
  {
    QTest::addColumn<OdGUID>("guid");
    QTest::addColumn<int>("options");
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("expectedOptions");
    QTest::newRow("empty keeps only the tool-tip bit") << PropUiGuidEmpty << 0x42 << "PropUiQControl" << 0x40;
    QTest::newRow("action tool buttons") << PropUiGuidActionToolButtons << 0x20000 << "PropUiActionToolButtonsCtrl" << 0x20000;
    QTest::newRow("action push buttons") << PropUiGuidActionPushButtons << 0x40040 << "PropUiActionPushButtonsCtrl" << 0x40040;
    QTest::newRow("label") << PropUiGuidLabel << 0x40 << "PropUiQLabel" << 0x40;
    QTest::newRow("double elided") << PropUiGuidDouble << 0x10040 << "PropUiQDoubleCtrl" << 0x10040;
    QTest::newRow("double alt") << PropUiGuidDoubleAlt << 0x40 << "PropUiQDoubleCtrl" << 0x40;
    QTest::newRow("double multi-line") << PropUiGuidDouble << (0x8 | 0x10000) << "multi:PropUiQDoubleCtrl" << 0;
    QTest::newRow("double text combo") << PropUiGuidDouble << 0x42 << "PropUiQTextComboCtrl" << 0x40;
    QTest::newRow("multi-line before combo") << PropUiGuidText << 0xA << "multi:PropUiQTextCtrl" << 0;
    QTest::newRow("integer 0x2") << PropUiGuidInteger << 0x2 << "PropUiQTextComboCtrl" << 0;
    QTest::newRow("bool") << PropUiGuidBool << 0x10040 << "PropUiQCheckBox" << 0x40;
    QTest::newRow("bool combo") << PropUiGuidBool << 0x2 << "PropUiQTextComboCtrl" << 0;
    QTest::newRow("switch keeps options") << PropUiGuidSwitch << 0x20040 << "PropUiQSwitchBox" << 0x20040;
    QTest::newRow("text switch combo") << PropUiGuidTextSwitch << 0x2 << "PropUiQTextComboCtrl" << 0;
    QTest::newRow("tool buttons") << PropUiGuidToolButtons << 0x1000040 << "PropUiQToolButtonsCtrl" << 0x1000040;
    QTest::newRow("3x3") << PropUiGuidButtons3x3 << 0x10042 << "PropUiQButtons3x3Ctrl" << 0x40;
    QTest::newRow("angle multi-line") << PropUiGuidAngle << 0x48 << "multi:PropUiQAngleCtrl" << 0x40;
    QTest::newRow("text") << PropUiGuidText << 0x10000 << "PropUiQTextCtrl" << 0x10003;
    QTest::newRow("integer multi-line") << PropUiGuidInteger << 0xC << "multi:PropUiQIntegerCtrl" << 0;
    QTest::newRow("variant") << PropUiGuidVariant << 0x40 << "PropUiQTextCtrl" << 0x43;
    QTest::newRow("variant never a combo") << PropUiGuidVariant << 0x2 << "PropUiQTextCtrl" << 0x3;
    QTest::newRow("variant multi-line") << PropUiGuidVariant << 0x8 << "multi:PropUiQTextCtrl" << 0;
    QTest::newRow("slider") << PropUiGuidSlider << 0x10040 << "PropUiQSliderCtrl" << 0x40;
    QTest::newRow("coords 2d") << PropUiGuidCoords2d << 0x10041 << "PropUiQCoords2d" << 0x40;
    QTest::newRow("scale 2d") << PropUiGuidScale2d << 0x48 << "PropUiQScale2d" << 0x40;
    QTest::newRow("coords 3d keeps no two-axis bit") << PropUiGuidCoords3d << 0x41 << "PropUiQCoords3d" << 0x40;
    QTest::newRow("list keeps options") << PropUiGuidList << 0x30000 << "PropUiQListCtrl" << 0x30000;
    // The drawing-attribute pickers fix their entries whatever the caller asks for.
    QTest::newRow("layer") << PropUiGuidLayer << 0x10070 << "PropUiQLayerCtrl" << 0x40;
    QTest::newRow("color") << PropUiGuidColor << 0x10070 << "PropUiQColorCtrl" << (0xB | 0x40);
    QTest::newRow("linetype") << PropUiGuidLinetype << 0x10070 << "PropUiQLinetypeCtrl" << (0x7 | 0x40);
    QTest::newRow("lineweight") << PropUiGuidLineweight << 0x10070 << "PropUiQLineweightCtrl" << (0x7 | 0x40);
    QTest::newRow("arrowhead") << PropUiGuidArrowhead << 0x10070 << "PropUiQArrowheadCtrl" << (0x3 | 0x40);
  }

  void widgetForms()
  {
    QFETCH(OdGUID, guid);
    QFETCH(int, options);
    QFETCH(QString, kind);
    QFETCH(int, expectedOptions);
    QScopedPointer<PropUiQWidget> widget(propUiCreateWidget(guid, options));
    QVERIFY(widget);
    if (kind == QLatin1String("multi:PropUiQDoubleCtrl"))
      QVERIFY(isA<PropUiQMLineEdit<PropUiQDoubleCtrl> >(widget));
    else if (kind == QLatin1String("multi:PropUiQAngleCtrl"))
      QVERIFY(isA<PropUiQMLineEdit<PropUiQAngleCtrl> >(widget));
    else if (kind == QLatin1String("multi:PropUiQIntegerCtrl"))
      QVERIFY(isA<PropUiQMLineEdit<PropUiQIntegerCtrl> >(widget));
    else if (kind == QLatin1String("multi:PropUiQTextCtrl"))
      QVERIFY(isA<PropUiQMLineEdit<PropUiQTextCtrl> >(widget));
    else
      QCOMPARE(classOf(widget), kind);
    QCOMPARE(widget->getOptions(), expectedOptions);
  }

};

QTEST_MAIN(TestFactories)
#include "tst_Factories.moc"
