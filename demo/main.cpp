// The demo host: loads libPropWidgets as a run-time module, as a CAD host
// does, and shows a drawing with the property palette of its selection.
//
//   propwidgets-demo [FILE.dxf] [--theme dark|light] [--mixed] [--lang de] [--screenshot FILE.png] [--catalogue]
//   propwidgets-demo --save-as OUT.dxf IN.dxf [--set-colour INDEX]
//
// Without a file it opens a sample drawing with every kind of entity. --mixed
// selects entities whose values partly differ. --catalogue shows the panel of
// every control kind over an invented bag instead of a drawing.
//
// --save-as opens IN.dxf and saves it as OUT.dxf, without a window, for
// scripts and tests: status 0 when saved, 1 with the reason on stderr.
// --set-colour gives every entity of the model space that palette colour
// first, an edit a script can check the save of.
//
// Without a display it renders offscreen, writes pictures of both themes,
// both forms of the palette and a double-density picture, and prints where
// they are.

#include "DemoBag.h"
#include "DemoWindow.h"
#include "DrawingDocument.h"
#include "DrawingEditorWindow.h"
#include "DxfReader.h"
#include "DxfWriter.h"
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
#include <cstdlib>
#include <cstring>

namespace
{

struct Options
{
  int theme = 1;
  bool mixed = false;
  QString screenshot;
  QString language;
  QString drawing;
  bool catalogue = false;
  bool headless = false;
  QString saveAs;
  int setColour = -1;
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
    else if (!std::strcmp(arg, "--save-as") && i + 1 < argc)
      options.saveAs = QString::fromLocal8Bit(argv[++i]);
    else if (!std::strcmp(arg, "--set-colour") && i + 1 < argc)
    {
      options.setColour = std::atoi(argv[++i]);
      if (options.setColour < 1 || options.setColour > 255)
        return false;
    }
    else if (!std::strcmp(arg, "--mixed"))
      options.mixed = true;
    else if (!std::strcmp(arg, "--catalogue"))
      options.catalogue = true;
    else if (arg[0] != '-' && options.drawing.isEmpty())
      options.drawing = QString::fromLocal8Bit(arg);
    else
      return false;
  }
  return options.saveAs.isEmpty() ? options.setColour < 0 : !options.drawing.isEmpty();
}

/** Opens the drawing and saves it under another name, as File > Save As does, with no window. */
int runSaveAs(const Options& options)
{
  DrawingDocument document;
  QString error;
  if (!readDxf(options.drawing, document, &error))
  {
    std::fprintf(stderr, "propwidgets-demo: %s\n", qPrintable(error));
    return 1;
  }
  if (options.setColour > 0)
  {
    std::vector<DrawingEntity> edited = document.entities();
    for (DrawingEntity& entity : edited)
      entity.color.setColorIndex(OdInt16(options.setColour));
    document.replaceEntities(edited);
  }
  if (!writeDxf(options.saveAs, document, &error))
  {
    std::fprintf(stderr, "propwidgets-demo: %s\n", qPrintable(error));
    return 1;
  }
  return 0;
}

/**
 * Speaks the language as a host does: Qt's own texts (dialog buttons, context
 * menus) from the system's catalogue when it has one (Debian's
 * qttranslations5-l10n or qt6-translations-l10n), the controls' texts from the library's and the
 * editor's own from the demo's, built into it.
 */
void installTranslators(QApplication& app, const QString& language)
{
  const QLocale locale(language);
  // dates and numbers follow the language asked for, as they would in a host started in it
  QLocale::setDefault(locale);
  auto* qtTranslator = new QTranslator(&app);
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
  const QString qtCatalogues = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
#else
  const QString qtCatalogues = QLibraryInfo::location(QLibraryInfo::TranslationsPath);
#endif
  if (qtTranslator->load(locale, QStringLiteral("qtbase"), QStringLiteral("_"), qtCatalogues))
    QApplication::installTranslator(qtTranslator);
  else
    delete qtTranslator;
  if (!propUiInstallTranslator(locale))
    std::fprintf(stderr, "propwidgets-demo: the controls have no catalogue for \"%s\"\n", qPrintable(language));
  auto* demoTranslator = new QTranslator(&app);
  if (demoTranslator->load(locale, QStringLiteral("propwidgets-demo"), QStringLiteral("_"),
                           QStringLiteral(":/propwidgets-demo/translations")))
    QApplication::installTranslator(demoTranslator);
  else
  {
    delete demoTranslator;
    std::fprintf(stderr, "propwidgets-demo: the editor has no catalogue for \"%s\"\n", qPrintable(language));
  }
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

const char kUsage[] =
  "usage: propwidgets-demo [FILE.dxf] [--theme dark|light] [--mixed] [--lang de] [--screenshot FILE.png] [--catalogue]\n"
  "       propwidgets-demo --save-as OUT.dxf IN.dxf [--set-colour INDEX]\n";

/** The control catalogue over the invented bag, as the demo was before it edited drawings. */
int runCatalogue(QApplication& app, const Options& options)
{
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
  return status;
}

/** The drawing editor: the drawing, its selection's palette, undo and files. */
int runEditor(QApplication& app, const Options& options)
{
  DrawingEditorWindow editor;
  if (options.drawing.isEmpty())
    editor.openSample();
  else
  {
    QString error;
    if (!editor.openFile(options.drawing, &error))
    {
      std::fprintf(stderr, "propwidgets-demo: %s cannot be opened: %s\n", qPrintable(options.drawing), qPrintable(error));
      return 1;
    }
  }
  if (options.mixed || options.headless)
    editor.selectMixed();
  const bool unattended = options.headless || !options.screenshot.isEmpty();
  if (unattended)
  {
    // Nobody is there to close a message box: it goes to the error stream instead.
    host_qt_ui::QHostMessageBoxOd::setInterceptor([](host_qt_ui::QHostMessageBoxOd::Kind, const QString& text, int) {
      std::fprintf(stderr, "propwidgets-demo: %s\n", qPrintable(text));
      return int(host_qt_ui::QHostMessageBoxOd::Ok);
    });
  }
  int status = 0;
  if (!options.screenshot.isEmpty())
  {
    if (!editor.saveScreenshot(options.screenshot))
      status = 1;
    else
      std::printf("%s\n", qPrintable(QFileInfo(options.screenshot).absoluteFilePath()));
  }
  else if (options.headless)
  {
    const QString dir = QDir::current().absoluteFilePath(QStringLiteral("screenshots"));
    QDir().mkpath(dir);
    std::printf("No display: the drawing editor was rendered offscreen into %s\n", qPrintable(dir));
    for (int theme : {1, 0})
      for (int form : {0, 1})
      {
        editor.setTheme(theme);
        editor.setPaletteForm(form);
        const QString name = QStringLiteral("%1/editor-%2-%3").arg(dir, theme ? QStringLiteral("light") : QStringLiteral("dark"),
                                                                   form ? QStringLiteral("grid") : QStringLiteral("controls"));
        for (qreal scale : {1.0, 2.0})
        {
          const QString path = name + (scale > 1 ? QStringLiteral("@2x.png") : QStringLiteral(".png"));
          if (!editor.saveScreenshot(path, scale))
            status = 1;
          std::printf("  %s\n", qPrintable(path));
        }
      }
  }
  else
  {
    editor.placeOnScreen();
    editor.show();
    status = app.exec();
  }
  host_qt_ui::QHostMessageBoxOd::setInterceptor(host_qt_ui::QHostMessageBoxOd::Interceptor());
  return status;
}

} // namespace

int main(int argc, char** argv)
{
  Options options;
  if (!parse(argc, argv, options))
  {
    std::fputs(kUsage, stderr);
    return 2;
  }
  if (!options.saveAs.isEmpty())
  {
    QCoreApplication app(argc, argv);
    return runSaveAs(options);
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

  const int status = options.catalogue ? runCatalogue(app, options) : runEditor(app, options);
  odrxDynamicLinker()->unloadModule(OdString(L"PropWidgets"));
  return status;
}
