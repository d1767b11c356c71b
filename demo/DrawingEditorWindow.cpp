#include "DrawingEditorWindow.h"

#include "DemoBag.h"
#include "DemoSettings.h"
#include "DemoWindow.h"
#include "DrawingCanvas.h"
#include "DxfReader.h"
#include "DxfWriter.h"
#include "HostQtStyleManager.h"
#include "PropertyPalette.h"
#include "SampleDrawing.h"
#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPainter>
#include <QScreen>
#include <QSplitter>
#include <QStatusBar>
#include <QStyle>
#include <QWindow>

namespace
{

const char kGeometryKey[] = "editor/geometry";
/** How long a note in the status bar stays, in milliseconds. */
constexpr int kNoteTimeout = 6000;

/**
 * Lets Ctrl+Z and Ctrl+Shift+Z reach the drawing's undo from a palette field
 * that has no typing of its own to undo: after an edit is committed, the
 * user means the drawing, not the field.
 */
class UndoShortcutFilter : public QObject
{
public:
  UndoShortcutFilter(QWidget* palette, QObject* parent) : QObject(parent), m_palette(palette) {}

  bool eventFilter(QObject* watched, QEvent* event) override
  {
    if (event->type() != QEvent::ShortcutOverride)
      return false;
    auto* edit = qobject_cast<QLineEdit*>(watched);
    if (!edit || !m_palette || !m_palette->isAncestorOf(edit))
      return false;
    auto* key = static_cast<QKeyEvent*>(event);
    const bool undo = key->matches(QKeySequence::Undo) && !edit->isUndoAvailable();
    const bool shiftZ = key->key() == Qt::Key_Z && key->modifiers() == (Qt::ControlModifier | Qt::ShiftModifier);
    const bool redo = (key->matches(QKeySequence::Redo) || shiftZ) && !edit->isRedoAvailable();
    if (!undo && !redo)
      return false;
    // Not accepted: the field passes on the key and the window's shortcut takes it.
    event->ignore();
    return true;
  }

private:
  QPointer<QWidget> m_palette;
};

/**
 * Why a file cannot be written at @p path, as far as the file system tells:
 * the writer knows only that writing failed. Empty when nothing stands out.
 */
QString writeObstacle(const QString& path)
{
  const QFileInfo file(path);
  const QFileInfo folder(file.absolutePath());
  const QString where = QDir::toNativeSeparators(folder.absoluteFilePath());
  if (!folder.exists())
    return DrawingEditorWindow::tr("The folder %1 does not exist.").arg(where);
  if (!folder.isDir())
    return DrawingEditorWindow::tr("%1 is a file, not a folder.").arg(where);
  if (file.isDir())
    return DrawingEditorWindow::tr("A folder of that name is in the way.");
  if (file.exists() && !file.isWritable())
    return DrawingEditorWindow::tr("The file is read-only.");
  if (!folder.isWritable())
    return DrawingEditorWindow::tr("The folder %1 does not allow writing.").arg(where);
  return QString();
}

} // namespace

DrawingEditorWindow::DrawingEditorWindow(QWidget* parent)
  : QMainWindow(parent), m_bag(&m_document, &m_undo), m_prompts(std::make_unique<EditorPrompts>())
{
  m_split = new QSplitter(Qt::Horizontal, this);
  m_split->setObjectName(QStringLiteral("split"));
  m_split->setChildrenCollapsible(false);
  m_canvas = new DrawingCanvas(&m_document, m_split);
  m_canvas->setAccessibleName(tr("Drawing"));
  m_palette = new PropertyPalette(&m_bag, m_split);
  m_split->addWidget(m_canvas);
  m_split->addWidget(m_palette);
  m_split->setStretchFactor(0, 1);
  m_split->setStretchFactor(1, 0);
  setCentralWidget(m_split);
  buildMenus();
  statusBar()->setObjectName(QStringLiteral("statusBar"));
  qApp->installEventFilter(new UndoShortcutFilter(m_palette, this));

  connect(m_canvas, &DrawingCanvas::selectionChanged, this, &DrawingEditorWindow::onSelectionChanged);
  connect(&m_document, &DrawingDocument::documentReset, this, &DrawingEditorWindow::afterDocumentReset);
  connect(&m_undo, &QUndoStack::cleanChanged, this, &DrawingEditorWindow::updateTitle);
  // The size pictures are made at; a window shown to a person takes its size from the screen (placeOnScreen).
  resize(1400, 860);
  fitPalette();
  updateTitle();
}

DrawingEditorWindow::~DrawingEditorWindow()
{
  // The canvas and the palette use the document, the bag and the undo stack, which die before the
  // window's children would: they go first.
  delete takeCentralWidget();
  // The catalogue window reads its bag until it is gone.
  m_catalogue.reset();
}

void DrawingEditorWindow::buildMenus()
{
  // Qt 6 takes a shortcut before the receiver and Qt 5 after it: an entry with a key is made in three steps.
  const auto addWithKey = [this](QMenu* menu, const QString& text, auto slot, const QKeySequence& key) {
    QAction* action = menu->addAction(text);
    action->setShortcut(key);
    connect(action, &QAction::triggered, this, slot);
    return action;
  };
  QMenu* file = menuBar()->addMenu(tr("&File"));
  const auto add = [file, addWithKey](const char* name, const QString& text, auto slot, const QKeySequence& key) {
    QAction* action = addWithKey(file, text, slot, key);
    action->setObjectName(QLatin1String(name));
    return action;
  };
  add("actionNew", tr("&New"), &DrawingEditorWindow::onNew, QKeySequence::New);
  add("actionOpen", tr("&Open..."), &DrawingEditorWindow::onOpen, QKeySequence::Open);
  m_recentMenu = file->addMenu(tr("Open &Recent"));
  m_recentMenu->setObjectName(QStringLiteral("menuRecent"));
  connect(m_recentMenu, &QMenu::aboutToShow, this, &DrawingEditorWindow::fillRecentMenu);
  fillRecentMenu();
  file->addSeparator();
  add("actionSave", tr("&Save"), &DrawingEditorWindow::save, QKeySequence::Save);
  // Not every platform binds the standard Save As key: name it.
  add("actionSaveAs", tr("Save &As..."), &DrawingEditorWindow::saveAs, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
  file->addSeparator();
  add("actionQuit", tr("&Quit"), &QWidget::close, QKeySequence::Quit);

  QMenu* edit = menuBar()->addMenu(tr("&Edit"));
  QAction* undo = m_undo.createUndoAction(this, tr("&Undo"));
  undo->setShortcut(QKeySequence::Undo);
  QAction* redo = m_undo.createRedoAction(this, tr("&Redo"));
  redo->setShortcuts({QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});
  edit->addAction(undo);
  edit->addAction(redo);
  edit->addSeparator();
  QAction* selectAll = addWithKey(
    edit, tr("Select &All"), [this]() { m_canvas->selectAll(); }, QKeySequence::SelectAll);
  // The drawing's, not the palette's: Ctrl+A in the grid or a field must not select every object.
  selectAll->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  m_canvas->addAction(selectAll);

  QMenu* view = menuBar()->addMenu(tr("&View"));
  addWithKey(
    view, tr("Zoom &Extents"), [this]() { m_canvas->zoomExtents(); }, QKeySequence(Qt::Key_Home));
  view->addSeparator();
  m_themes = new QActionGroup(this);
  const int current = hostGetQtStyleManager()->theme();
  for (int theme : {0, 1})
  {
    QAction* action = view->addAction(theme == 0 ? tr("&Dark Theme") : tr("&Light Theme"));
    action->setCheckable(true);
    action->setChecked(theme == current);
    action->setData(theme);
    m_themes->addAction(action);
    connect(action, &QAction::triggered, this, [this, theme]() { setTheme(theme); });
  }
  view->addSeparator();
  view->addAction(tr("Properties as &Controls"), this, [this]() { setPaletteForm(0); });
  view->addAction(tr("Properties as &Grid"), this, [this]() { setPaletteForm(1); });
  view->addSeparator();
  view->addAction(tr("Control &Catalogue"), this, &DrawingEditorWindow::showCatalogue);
}

void DrawingEditorWindow::fillRecentMenu()
{
  m_recentMenu->clear();
  const QStringList files = m_recent.files();
  for (int i = 0; i < files.size(); ++i)
  {
    const QString path = files.at(i);
    // The number is the key that picks it; the folder shows where the mouse rests.
    QString name = QFileInfo(path).fileName();
    name.replace(QLatin1Char('&'), QStringLiteral("&&"));
    QAction* action = m_recentMenu->addAction(QStringLiteral("&%1 %2").arg(i + 1).arg(name));
    action->setStatusTip(QDir::toNativeSeparators(path));
    action->setToolTip(action->statusTip());
    action->setData(path);
    connect(action, &QAction::triggered, this, [this, path]() { openRecent(path); });
  }
  if (files.isEmpty())
    m_recentMenu->addAction(tr("No recent drawings"))->setEnabled(false);
  m_recentMenu->addSeparator();
  QAction* clear = m_recentMenu->addAction(tr("&Clear List"), this, [this]() { m_recent.clear(); });
  clear->setObjectName(QStringLiteral("actionClearRecent"));
  clear->setEnabled(!files.isEmpty());
}

bool DrawingEditorWindow::openFile(const QString& path, QString* error, int* skipped)
{
  // A file that cannot be read leaves the drawing on screen as it was.
  if (!readDxf(path, m_document, error, skipped))
    return false;
  m_document.setFileName(path);
  m_isSample = false;
  m_undo.clear();
  afterDocumentReset();
  return true;
}

void DrawingEditorWindow::openSample()
{
  m_document.clear();
  makeSampleDrawing(m_document);
  m_isSample = true;
  m_undo.clear();
  afterDocumentReset();
}

void DrawingEditorWindow::newDrawing()
{
  // A new database holds layer 0 and the linetypes ByBlock, ByLayer and Continuous, as every drawing does.
  m_document.clear();
  m_isSample = false;
  m_undo.clear();
  afterDocumentReset();
}

bool DrawingEditorWindow::saveFile(const QString& path, QString* error)
{
  if (!writeDxf(path, m_document, error))
    return false;
  m_document.setFileName(path);
  m_isSample = false;
  m_undo.setClean();
  updateTitle();
  return true;
}

void DrawingEditorWindow::setPrompts(std::unique_ptr<EditorPrompts> prompts)
{
  if (prompts)
    m_prompts = std::move(prompts);
}

void DrawingEditorWindow::tell(QMessageBox::Icon icon, const QString& title, const QString& text, const QString& why)
{
  EditorPrompts::Question notice;
  notice.icon = icon;
  notice.title = title;
  notice.text = text;
  notice.details = why;
  m_prompts->ask(this, notice);
}

bool DrawingEditorWindow::maySaveOrDiscardChanges()
{
  if (m_undo.isClean())
    return true;
  EditorPrompts::Question question;
  question.title = tr("Unsaved Changes");
  question.text = tr("%1 has changes that are not saved.").arg(shownName());
  question.details = tr("Save them first, discard them, or cancel and go on editing.");
  question.buttons = QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel;
  question.defaultButton = QMessageBox::Save;
  switch (m_prompts->ask(this, question))
  {
  case QMessageBox::Save:
    // A save that fails or that the user cancels keeps the drawing, and the action waits.
    return save();
  case QMessageBox::Discard:
    return true;
  default:
    return false;
  }
}

void DrawingEditorWindow::onNew()
{
  if (!maySaveOrDiscardChanges())
    return;
  newDrawing();
  statusBar()->showMessage(tr("New drawing"), kNoteTimeout);
}

void DrawingEditorWindow::onOpen()
{
  if (!maySaveOrDiscardChanges())
    return;
  const QString folder = m_document.fileName().isEmpty()
                           ? (m_recent.files().isEmpty() ? QString() : QFileInfo(m_recent.files().first()).path())
                           : QFileInfo(m_document.fileName()).path();
  const QString path = m_prompts->openFileName(this, tr("Open Drawing"), folder, tr("DXF drawings (*.dxf);;All files (*)"));
  if (!path.isEmpty())
    openChosen(path);
}

void DrawingEditorWindow::openRecent(const QString& path)
{
  // Asked before the question about unsaved changes: a file that is gone would only make the user save for nothing.
  if (!QFileInfo(path).isFile())
  {
    m_recent.remove(path);
    tell(QMessageBox::Warning, tr("Open Recent Drawing"),
         tr("%1 no longer exists; it has been taken off the recent drawings.").arg(QDir::toNativeSeparators(path)));
    return;
  }
  if (maySaveOrDiscardChanges())
    openChosen(path);
}

void DrawingEditorWindow::openChosen(const QString& path)
{
  QString error;
  int skipped = 0;
  // What is left out is said here: a save would not keep it.
  if (!openFile(path, &error, &skipped))
  {
    if (error.isEmpty())
      error = tr("The reason is not known.");
    tell(QMessageBox::Critical, tr("Open Drawing"), tr("%1 cannot be opened.").arg(QFileInfo(path).fileName()), error);
    return;
  }
  m_recent.add(path);
  if (skipped > 0)
    statusBar()->showMessage(tr("Opened %1; objects of kinds the editor does not know, left out: %2")
                               .arg(QFileInfo(path).fileName())
                               .arg(skipped),
                             kNoteTimeout);
  else
    statusBar()->showMessage(tr("Opened %1").arg(QFileInfo(path).fileName()), kNoteTimeout);
}

bool DrawingEditorWindow::save()
{
  if (m_document.fileName().isEmpty())
    return saveAs();
  return writeDrawing(m_document.fileName());
}

bool DrawingEditorWindow::saveAs()
{
  QString suggested = m_document.fileName();
  if (suggested.isEmpty())
  {
    const QStringList recent = m_recent.files();
    const QDir folder = recent.isEmpty() ? QDir::current() : QFileInfo(recent.first()).dir();
    suggested = folder.filePath(shownName() + QStringLiteral(".dxf"));
  }
  const QString path = m_prompts->saveFileName(this, tr("Save Drawing As"), suggested, tr("DXF drawings (*.dxf)"),
                                               QStringLiteral("dxf"));
  return !path.isEmpty() && writeDrawing(path);
}

bool DrawingEditorWindow::writeDrawing(const QString& path)
{
  const QString name = QFileInfo(path).fileName();
  const DxfSaveReport report = dxfSaveReport(m_document);
  QStringList changes = report.losses;
  if (!report.versionChange.isEmpty())
    changes.prepend(report.versionChange);
  if (!changes.isEmpty())
  {
    EditorPrompts::Question question;
    question.icon = QMessageBox::Warning;
    question.title = tr("Save Drawing");
    question.text = tr("Saving %1 changes more than your edits:").arg(name);
    question.details = QStringLiteral("\u2022 ") + changes.join(QStringLiteral("\n\u2022 "));
    question.buttons = QMessageBox::Save | QMessageBox::Cancel;
    question.defaultButton = QMessageBox::Cancel;
    question.captions.insert(QMessageBox::Save, tr("Save Anyway"));
    if (m_prompts->ask(this, question) != QMessageBox::Save)
      return false;
  }
  QString error;
  if (!saveFile(path, &error))
  {
    const QString obstacle = writeObstacle(path);
    if (!obstacle.isEmpty())
      error = error.isEmpty() ? obstacle : error + QLatin1Char('\n') + obstacle;
    if (error.isEmpty())
      error = tr("The reason is not known.");
    tell(QMessageBox::Critical, tr("Save Drawing"), tr("%1 cannot be saved.").arg(name), error);
    return false;
  }
  m_recent.add(path);
  statusBar()->showMessage(tr("Saved %1").arg(name), kNoteTimeout);
  return true;
}

void DrawingEditorWindow::onSelectionChanged()
{
  m_bag.setSelection(m_canvas->selection());
  m_palette->rebuild();
}

void DrawingEditorWindow::afterDocumentReset()
{
  m_canvas->setSelection({});
  m_canvas->zoomExtents();
  onSelectionChanged();
  updateTitle();
}

void DrawingEditorWindow::selectMixed()
{
  // Circles and arcs share a centre and a radius but rarely their values: the palette shows both states.
  QVector<quint64> round;
  for (const DrawingEntity& e : m_document.entities())
    if (e.kind == EntityKind::Circle || e.kind == EntityKind::Arc)
      round.append(e.handle);
  if (round.size() >= 2)
    m_canvas->setSelection(round);
  else
    m_canvas->selectAll();
}

void DrawingEditorWindow::setTheme(int theme)
{
  hostGetQtStyleManager()->setTheme(theme);
  for (QAction* action : m_themes->actions())
    action->setChecked(action->data().toInt() == theme);
  // Controls take their theme colours when they are built.
  m_palette->rebuild();
  m_canvas->viewport()->update();
}

PropertyPalette* DrawingEditorWindow::propertyPalette() const
{
  return m_palette;
}

void DrawingEditorWindow::setPaletteForm(int form)
{
  m_palette->setForm(form);
}

QString DrawingEditorWindow::shownName() const
{
  if (!m_document.fileName().isEmpty())
    return QFileInfo(m_document.fileName()).fileName();
  return m_isSample ? tr("Sample drawing") : tr("Untitled");
}

void DrawingEditorWindow::updateTitle()
{
  setWindowTitle(shownName() + QStringLiteral("[*]"));
  setWindowModified(!m_undo.isClean());
}

void DrawingEditorWindow::fitPalette()
{
  // Room for the longest captions beside their controls, but never more than half the window; the drawing takes the rest.
  const int paletteWidth = qMin(fontMetrics().averageCharWidth() * 52, width() / 2);
  m_split->setSizes({width() - paletteWidth, paletteWidth});
}

void DrawingEditorWindow::placeOnScreen()
{
  // Made now, so that the frame the platform adds around the window is known.
  create();
  const QMargins frame = windowHandle() ? windowHandle()->frameMargins() : QMargins();
  const QByteArray kept = demoSettings()->value(QLatin1String(kGeometryKey)).toByteArray();
  QScreen* screen = QGuiApplication::primaryScreen();
  const bool restored = !kept.isEmpty() && restoreGeometry(kept);
  if (restored)
    if (QScreen* shownOn = QGuiApplication::screenAt(geometry().center()))
      screen = shownOn;
  if (!screen)
    return;
  const QRect room = screen->availableGeometry().marginsRemoved(frame);
  if (!restored)
  {
    const QSize size = QSize(1400, 860).boundedTo(room.size() * 0.85);
    setGeometry(QStyle::alignedRect(layoutDirection(), Qt::AlignCenter, size, room));
  }
  else if (!isMaximized() && !isFullScreen() && !room.contains(geometry()))
  {
    // A place kept from a larger screen, another scale or a screen now gone is brought back whole.
    QRect placed = geometry();
    placed.setSize(placed.size().boundedTo(room.size()));
    placed.moveLeft(qBound(room.left(), placed.left(), room.right() - placed.width() + 1));
    placed.moveTop(qBound(room.top(), placed.top(), room.bottom() - placed.height() + 1));
    setGeometry(placed);
  }
  fitPalette();
}

bool DrawingEditorWindow::saveScreenshot(const QString& path, qreal scale)
{
  show();
  QApplication::processEvents();
  QImage picture(size() * scale, QImage::Format_ARGB32_Premultiplied);
  picture.setDevicePixelRatio(scale);
  picture.fill(palette().color(QPalette::Window));
  render(&picture);
  return picture.save(path);
}

void DrawingEditorWindow::showCatalogue()
{
  if (!m_catalogue)
  {
    m_catalogueBag = std::make_unique<DemoBag>();
    m_catalogue = std::make_unique<DemoWindow>(m_catalogueBag.get());
    DemoWindow* window = m_catalogue.get();
    m_catalogueBag->setLog([window](const QString& line, bool accepted) {
      window->appendLog(line, accepted);
      if (accepted)
        window->scheduleRefresh();
    });
  }
  m_catalogue->show();
  m_catalogue->raise();
  m_catalogue->activateWindow();
}

void DrawingEditorWindow::closeEvent(QCloseEvent* event)
{
  if (!maySaveOrDiscardChanges())
  {
    event->ignore();
    return;
  }
  if (isVisible())
    demoSettings()->setValue(QLatin1String(kGeometryKey), saveGeometry());
  if (m_catalogue)
    m_catalogue->close();
  event->accept();
}
