#include "HostQtStyleManager.h"
#include "OdError.h"
#include "OdRxDictionary.h"
#include "OdRxDynamicLinker.h"
#include "OdStringQt.h"
#include "PropAction.h"
#include "PropBag.h"
#include "PropItemType.h"
#include "PropUiGuids.h"
#include "PropUiIcons.h"
#include "PropUiQControl.h"
#include "PropUiQEventFilter.h"
#include "PropUiQFormatter.h"
#include "PropUiQWidgetFactory.h"
#include "PropUiRegistry.h"
#include "PropWidgetsEntry.h"
#include "VtableSlot.h"
#include "hostPropEditorReactor.h"
#include <QtTest>

namespace
{

// Stateless, as every registered factory must be; it counts through a global.
int g_factoryCalls = 0;

class CountingFactory final : public PropUiQWidgetFactory
{
public:
  PropUiQWidget* createWidget(int options, QWidget* parent) override
  {
    ++g_factoryCalls;
    auto* control = new PropUiQControl(parent);
    control->setOptions(options);
    return control;
  }
  PropUiQWidget* createEditor(int options, QWidget* parent) override { return createWidget(options | 0x100, parent); }
};

OdGUID testGuid()
{
  const unsigned char bytes[8] = {1, 2, 3, 4, 5, 6, 7, 8};
  return OdGUID(0x12345678, 0x1234, 0x5678, bytes);
}

} // namespace

class TestModule : public QObject
{
  Q_OBJECT

private slots:
  void init() { odrxCreateModuleObject()->initApp(); }
  void cleanup()
  {
    if (odrxSysRegistry()->has(OdString(L"PROPWIDGETS_SERVICE")))
      odrxCreateModuleObject()->uninitApp();
  }

  void interfacesKeepTheirSlots()
  {
    // A host compiled against the headers calls these positions.
    const QVector<long> positions{
      vtableSlot(&PropBag::getBagName),      vtableSlot(&PropBag::getItemCount),       vtableSlot(&PropBag::getItemType),
      vtableSlot(&PropBag::isEditable),      vtableSlot(&PropBag::getName),            vtableSlot(&PropBag::getDescription),
      vtableSlot(&PropBag::getControlGuid),  vtableSlot(&PropBag::validate),           vtableSlot(&PropBag::parseValue),
      vtableSlot(&PropBag::getValue),        vtableSlot(&PropBag::setValue),           vtableSlot(&PropBag::getActions),
      vtableSlot(&PropBag::getValueList),    vtableSlot(&PropBag::getListText),        vtableSlot(&PropBag::getElementValue),
      vtableSlot(&PropBag::setElementValue), vtableSlot(&PropBag::getGroupCount),      vtableSlot(&PropBag::getContext),
      vtableSlot(&PropBag::getReactor),      vtableSlot(&PropUiQWidgetFactory::createWidget),
      vtableSlot(&PropUiQWidgetFactory::createEditor), vtableSlot(&PropItemType::typeId),
      vtableSlot(&PropItemType::editorGuid), vtableSlot(&hostPropEditorReactor::focusChanged),
      vtableSlot(&hostPropEditorReactor::pinnedChanged), vtableSlot(&PropAction::clone), vtableSlot(&PropAction::execute),
      vtableSlot(&PropAction::modeless)};
    QCOMPARE(positions, (QVector<long>{2, 3, 5, 6, 8, 10, 12, 13, 16, 17, 18, 19, 21, 24, 26, 27, 29, 30, 31, // the bag
                                       0, 1, 0, 2, 2, 5, 2, 3, 9}));

    // The control interface follows QWidget's own operations, in this order.
    typedef void (PropUiQWidget::*Bind2)(PropBag*, int);
    typedef void (PropUiQWidget::*Bind3)(PropBag*, int, unsigned long);
    const long first = vtableSlot(&PropUiQWidget::setupUi);
    const long order[] = {vtableSlot(&PropUiQWidget::setupUi),
                          vtableSlot(&PropUiQWidget::updateUi),
                          vtableSlot(static_cast<Bind2>(&PropUiQWidget::setPropBagItem)),
                          vtableSlot(static_cast<Bind3>(&PropUiQWidget::setPropBagItem)),
                          vtableSlot(&PropUiQWidget::disableActionsToolbar),
                          vtableSlot(&PropUiQWidget::updateData),
                          vtableSlot(&PropUiQWidget::getOptions),
                          vtableSlot(&PropUiQWidget::setOptions),
                          vtableSlot(&PropUiQWidget::onUpdateDisplay),
                          vtableSlot(&PropUiQWidget::isVaries),
                          vtableSlot(&PropUiQWidget::setVaries)};
    QVERIFY(first > vtableSlot(&QWidget::setVisible));
    for (int i = 0; i < 11; ++i)
      QCOMPARE(order[i], first + i);
  }

  void registryOwnsWhatItAccepts()
  {
    OdRxObjectPtr service = odrxSysRegistry()->getAt(OdString(L"PROPWIDGETS_SERVICE"));
    QCOMPARE(toQString(service->isA()->name()), QStringLiteral("PropWidgetsService"));
    QVERIFY(!propUiCreateWidget(testGuid(), 0));
    QVERIFY(!propUiCreateEditor(testGuid(), 0));

    auto* first = new CountingFactory;
    QVERIFY(propUiRegisterWidget(testGuid(), first));
    CountingFactory rejected; // stays ours: a refused registration must not delete it
    QVERIFY(!propUiRegisterWidget(testGuid(), &rejected));
    QVERIFY(!propUiRegisterWidget(testGuid(), nullptr));

    g_factoryCalls = 0;
    QScopedPointer<PropUiQWidget> made(propUiCreateWidget(testGuid(), 7));
    QScopedPointer<PropUiQWidget> editor(propUiCreateEditor(testGuid(), 7));
    QCOMPARE(g_factoryCalls, 2); // the first factory still answers
    QCOMPARE(made->getOptions(), 7);
    QCOMPARE(editor->getOptions(), 0x107);
    QVERIFY(!made->parent());

    QVERIFY(propUiUnregisterWidget(testGuid()));
    QVERIFY(!propUiUnregisterWidget(testGuid()));
    QVERIFY(!propUiCreateWidget(testGuid(), 0));

    // A host replaces a built-in control by unregistering it first.
    QVERIFY(!propUiRegisterWidget(PropUiGuidEmpty, &rejected));
    QVERIFY(propUiUnregisterWidget(PropUiGuidEmpty));
    QVERIFY(propUiRegisterWidget(PropUiGuidEmpty, new CountingFactory));
    QScopedPointer<PropUiQWidget> replaced(propUiCreateWidget(PropUiGuidEmpty, 3));
    QCOMPARE(replaced->getOptions(), 3);
  }

  void nothingWorksWhileTheModuleIsStopped()
  {
    odrxCreateModuleObject()->uninitApp();
    QVERIFY(!odrxSysRegistry()->has(OdString(L"PROPWIDGETS_SERVICE")));
    QVERIFY(!propUiCreateWidget(PropUiGuidEmpty, 0));
    QVERIFY(!propUiCreateEditor(PropUiGuidEmpty, 0));
    auto* factory = new CountingFactory;
    QVERIFY(!propUiRegisterWidget(testGuid(), factory));
    delete factory;
    QVERIFY(!propUiUnregisterWidget(PropUiGuidEmpty));

    try
    {
      odrxCreateModuleObject()->uninitApp();
      QFAIL("stopping a stopped module raised nothing");
    }
    catch (const OdError& e)
    {
      QCOMPARE(int(e.code()), 255);
    }
    odrxCreateModuleObject()->initApp();
    QVERIFY(propUiCreateWidget(PropUiGuidEmpty, 0));
    delete propUiCreateWidget(PropUiGuidEmpty, 0);
  }

  void startingTwiceRaisesDuplicateKey()
  {
    try
    {
      odrxCreateModuleObject()->initApp();
      QFAIL("a second start raised nothing");
    }
    catch (const OdError& e)
    {
      QCOMPARE(int(e.code()), 314);
    }
  }

  void entryPointsAndLoader()
  {
    QCOMPARE(odrxCreateModuleObject(), odrxCreateModuleObject());
    int major = 0, minor = 0, b1 = -1, b2 = -1;
    odrxGetAPIVersion(major, minor, b1, b2);
    QCOMPARE(QVector<int>({major, minor, b1, b2}), QVector<int>({24, 8, 0, 0}));

    // The platform's loader opens the same shared object and starts the same module.
    odrxCreateModuleObject()->uninitApp();
    OdRxModulePtr loaded = odrxDynamicLinker()->loadModule(OdString(L"PropWidgets"));
    QVERIFY2(loaded, qPrintable(toQString(odrxDynamicLinker()->lastError())));
    QCOMPARE(loaded.get(), odrxCreateModuleObject());
    QVERIFY(propUiCreateWidget(PropUiGuidEmpty, 0));
    delete propUiCreateWidget(PropUiGuidEmpty, 0);
    QVERIFY(odrxDynamicLinker()->unloadModule(OdString(L"PropWidgets")));
    QVERIFY(!propUiCreateWidget(PropUiGuidEmpty, 0));
    QVERIFY(!odrxDynamicLinker()->loadModule(OdString(L"NoSuchModule")));

    // Where a run-time install has only lib<name>.so.<major> beside the application, that is opened.
    const QString runtimeOnly = QCoreApplication::applicationDirPath() + QStringLiteral("/libRuntimeOnly.so.1");
    QFile::remove(runtimeOnly);
    QVERIFY(QFile::link(QCoreApplication::applicationDirPath() + QStringLiteral("/libPropWidgets.so"), runtimeOnly));
    loaded = odrxDynamicLinker()->loadModule(OdString(L"RuntimeOnly"));
    QFile::remove(runtimeOnly);
    QVERIFY2(loaded, qPrintable(toQString(odrxDynamicLinker()->lastError())));
    QCOMPARE(loaded.get(), odrxCreateModuleObject());
    QVERIFY(odrxDynamicLinker()->unloadModule(OdString(L"RuntimeOnly")));
    odrxCreateModuleObject()->initApp();
  }

  void themedIconsFollowTheThemeAndStayCached()
  {
    HostQtStyleManager* style = hostGetQtStyleManager();
    const int before = style->theme();
    style->setTheme(0);
    const QIcon dark = propUiGetIcon(QStringLiteral("lock"));
    QVERIFY(!dark.isNull());
    QCOMPARE(propUiGetIcon(QStringLiteral("lock")).cacheKey(), dark.cacheKey());

    style->setTheme(1);
    const QIcon light = propUiGetIcon(QStringLiteral("lock"));
    QVERIFY(!light.isNull());
    QVERIFY(light.cacheKey() != dark.cacheKey());
    const QImage lightImage = light.pixmap(16, 16).toImage();
    QCOMPARE(lightImage, QIcon(QStringLiteral(":/res/light/lock.ico")).pixmap(16, 16).toImage());
    QVERIFY(lightImage != dark.pixmap(16, 16).toImage());

    style->setTheme(0);
    QCOMPARE(propUiGetIcon(QStringLiteral("lock")).cacheKey(), dark.cacheKey());
    for (const char* name : {"default_button", "unlock"})
      QVERIFY(!propUiGetIcon(QString::fromLatin1(name)).isNull());
    // A missing resource is a null icon, cached like any other.
    QVERIFY(propUiGetIcon(QStringLiteral("no_such_icon")).pixmap(16, 16).isNull());
    style->setTheme(before);
  }
};

QTEST_MAIN(TestModule)
#include "tst_Module.moc"
