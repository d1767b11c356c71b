// The demo host: loads libPropWidgets as a run-time module, as a CAD host
// does, and shows a property panel over a sample bag.
//
//   propwidgets-demo [--theme dark|light] [--mixed] [--lang de] [--screenshot FILE.png]
//
// Without a display it renders offscreen, writes pictures of both themes,
// plain and with a mixed selection, and prints where they are.

#include "DemoBag.h"
#include "DemoWindow.h"
#include "HostDocManager.h"
#include "HostQtStyleManager.h"
#include "OdRxDynamicLinker.h"
#include "OdStringQt.h"
#include "PropUiTranslations.h"
#include "QHostMessageBoxOd.h"
#include <QApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QTranslator>
#include <QStyleFactory>
#include <cstdio>
#include <cstring>

namespace
{

struct Options
{
  int theme = 1;
  bool mixed = false;
  QString screenshot;
  QString language;
  bool headless = false;
};

bool parse(int argc, char** argv, Options& options)
{
  for (int i = 1; i < argc; ++i)
  {
    const char* arg = argv[i];
    if (!std::strcmp(arg, "--theme") && i + 1 < argc)
    {
      const char* theme = argv[++i];
      if (!std::strcmp(theme, "dark"))
        options.theme = 0;
      else if (!std::strcmp(theme, "light"))
        options.theme = 1;
      else
        return false;
    }
    else if (!std::strcmp(arg, "--screenshot") && i + 1 < argc)
      options.screenshot = QString::fromLocal8Bit(argv[++i]);
    else if (!std::strcmp(arg, "--lang") && i + 1 < argc)
      options.language = QString::fromLocal8Bit(argv[++i]);
    else if (!std::strcmp(arg, "--mixed"))
      options.mixed = true;
    else
      return false;
  }
  return true;
}

/**
 * Speaks the language as a host does: Qt's own texts (dialog buttons, context
 * menus) from the system's catalogue when it has one, the controls' texts
 * from the library's.
 */
void installTranslators(QApplication& app, const QString& language)
{
  const QLocale locale(language);
  auto* qtTranslator = new QTranslator(&app);
  if (qtTranslator->load(locale, QStringLiteral("qtbase"), QStringLiteral("_"),
                         QLibraryInfo::location(QLibraryInfo::TranslationsPath)))
    QApplication::installTranslator(qtTranslator);
  else
    delete qtTranslator;
  if (!propUiInstallTranslator(locale))
    std::fprintf(stderr, "propwidgets-demo: the controls have no catalogue for \"%s\"\n", qPrintable(language));
}

/** The host's document: here it only counts redraw requests. */
class DemoDocument : public HostDocumentManager
{
public:
  explicit DemoDocument(DemoWindow*& window) : m_window(window) {}
  void updateDisplay() override
  {
    if (m_window)
      m_window->countRedraw();
  }

private:
  DemoWindow*& m_window;
};

} // namespace

int main(int argc, char** argv)
{
  Options options;
  if (!parse(argc, argv, options))
  {
    std::fprintf(stderr, "usage: propwidgets-demo [--theme dark|light] [--mixed] [--lang de] [--screenshot FILE.png]\n");
    return 2;
  }
  const bool noDisplay = qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
  options.headless = noDisplay && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
  if (options.headless || !options.screenshot.isEmpty())
    qputenv("QT_QPA_PLATFORM", "offscreen");

  QApplication app(argc, argv);
  QApplication::setApplicationDisplayName(QStringLiteral("Properties"));
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  if (!options.language.isEmpty())
    installTranslators(app, options.language);

  OdRxModulePtr module = odrxDynamicLinker()->loadModule(OdString(L"PropWidgets"));
  if (!module)
  {
    std::fprintf(stderr, "propwidgets-demo: cannot load the PropWidgets module: %s\n",
                 qPrintable(toQString(odrxDynamicLinker()->lastError())));
    return 1;
  }
  hostGetQtStyleManager()->setTheme(options.theme);

  DemoWindow* window = nullptr;
  DemoDocument document(window);
  hostSetDocManager(&document);
  int status = 0;
  {
    DemoBag bag;
    DemoWindow panel(&bag);
    window = &panel;
    bag.setLog([&panel](const QString& line, bool accepted) {
      panel.appendLog(line, accepted);
      if (accepted)
        panel.scheduleRefresh();
    });
    const bool unattended = options.headless || !options.screenshot.isEmpty();
    if (unattended)
    {
      // Nobody is there to close a message box: it goes to the log instead.
      host_qt_ui::QHostMessageBoxOd::setInterceptor(
        [&panel](host_qt_ui::QHostMessageBoxOd::Kind kind, const QString& text, int) {
          const QString box = kind == host_qt_ui::QHostMessageBoxOd::Critical ? QObject::tr("Error box")
                                                                              : QObject::tr("Note box");
          panel.appendLog(box + QStringLiteral(": ") + text, false);
          return int(host_qt_ui::QHostMessageBoxOd::Ok);
        });
    }
    panel.setMixed(options.mixed);

    if (!options.screenshot.isEmpty())
    {
      if (!panel.saveScreenshot(options.screenshot))
        status = 1;
      else
        std::printf("%s\n", qPrintable(QFileInfo(options.screenshot).absoluteFilePath()));
    }
    else if (options.headless)
    {
      const QString dir = QDir::current().absoluteFilePath(QStringLiteral("screenshots"));
      QDir().mkpath(dir);
      std::printf("No display: the panel was rendered offscreen into %s\n", qPrintable(dir));
      for (int theme : {1, 0})
        for (bool mixed : {false, true})
        {
          panel.setTheme(theme);
          panel.setMixed(mixed);
          const QString path = dir + QStringLiteral("/properties-%1%2.png")
                                       .arg(theme ? QStringLiteral("light") : QStringLiteral("dark"),
                                            mixed ? QStringLiteral("-varies") : QString());
          if (!panel.saveScreenshot(path))
            status = 1;
          std::printf("  %s\n", qPrintable(path));
        }
      // And once with a few edits made, so the log shows what the bag accepted and refused.
      panel.setTheme(1);
      panel.setMixed(false);
      panel.demonstrateEdits();
      const QString edited = dir + QStringLiteral("/properties-light-edits.png");
      if (!panel.saveScreenshot(edited))
        status = 1;
      std::printf("  %s\n", qPrintable(edited));
    }
    else
    {
      panel.show();
      status = app.exec();
    }
    window = nullptr;
    host_qt_ui::QHostMessageBoxOd::setInterceptor(host_qt_ui::QHostMessageBoxOd::Interceptor());
  }
  hostSetDocManager(nullptr);
  odrxDynamicLinker()->unloadModule(OdString(L"PropWidgets"));
  return status;
}
