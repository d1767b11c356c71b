#include "DrawingEditorWindow.h"

#include "DemoBag.h"
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
#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPainter>
#include <QSplitter>

namespace
{

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

} // namespace

DrawingEditorWindow::DrawingEditorWindow(QWidget* parent)
  : QMainWindow(parent), m_bag(&m_document, &m_undo)
{
  auto* split = new QSplitter(Qt::Horizontal, this);
  split->setObjectName(QStringLiteral("split"));
  split->setChildrenCollapsible(false);
  m_canvas = new DrawingCanvas(&m_document, split);
  m_canvas->setAccessibleName(tr("Drawing"));
  m_palette = new PropertyPalette(&m_bag, split);
  split->addWidget(m_canvas);
  split->addWidget(m_palette);
  split->setStretchFactor(0, 1);
  split->setStretchFactor(1, 0);
  setCentralWidget(split);
  buildMenus();
  qApp->installEventFilter(new UndoShortcutFilter(m_palette, this));

  connect(m_canvas, &DrawingCanvas::selectionChanged, this, &DrawingEditorWindow::onSelectionChanged);
  connect(&m_document, &DrawingDocument::documentReset, this, &DrawingEditorWindow::afterDocumentReset);
  connect(&m_undo, &QUndoStack::cleanChanged, this, &DrawingEditorWindow::updateTitle);
  resize(1400, 860);
  // Room for the longest captions beside their controls; the drawing takes the rest.
  const int paletteWidth = fontMetrics().averageCharWidth() * 52;
  split->setSizes({width() - paletteWidth, paletteWidth});
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
  QMenu* file = menuBar()->addMenu(tr("&File"));
  file->addAction(tr("&Open..."), this, &DrawingEditorWindow::onOpen, QKeySequence::Open);
  // Not every platform binds the standard Save As key: name it.
  file->addAction(tr("Save &As..."), this, &DrawingEditorWindow::onSaveAs, QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_S));
  file->addSeparator();
  file->addAction(tr("&Quit"), this, &QWidget::close, QKeySequence::Quit);

  QMenu* edit = menuBar()->addMenu(tr("&Edit"));
  QAction* undo = m_undo.createUndoAction(this, tr("&Undo"));
  undo->setShortcut(QKeySequence::Undo);
  QAction* redo = m_undo.createRedoAction(this, tr("&Redo"));
  redo->setShortcuts({QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_Z), QKeySequence(Qt::CTRL + Qt::Key_Y)});
  edit->addAction(undo);
  edit->addAction(redo);
  edit->addSeparator();
  QAction* selectAll = edit->addAction(tr("Select &All"), this, [this]() { m_canvas->selectAll(); }, QKeySequence::SelectAll);
  // The drawing's, not the palette's: Ctrl+A in the grid or a field must not select every object.
  selectAll->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  m_canvas->addAction(selectAll);

  QMenu* view = menuBar()->addMenu(tr("&View"));
  view->addAction(tr("Zoom &Extents"), this, [this]() { m_canvas->zoomExtents(); }, QKeySequence(Qt::Key_Home));
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

bool DrawingEditorWindow::openFile(const QString& path, QString* error)
{
  // A file that cannot be read leaves the drawing on screen as it was.
  if (!readDxf(path, m_document, error))
    return false;
  m_document.setFileName(path);
  m_undo.clear();
  afterDocumentReset();
  return true;
}

void DrawingEditorWindow::openSample()
{
  m_document.clear();
  makeSampleDrawing(m_document);
  m_undo.clear();
  afterDocumentReset();
}

bool DrawingEditorWindow::saveFile(const QString& path, QString* error)
{
  if (!writeDxf(path, m_document, error))
    return false;
  m_document.setFileName(path);
  m_undo.setClean();
  updateTitle();
  return true;
}

bool DrawingEditorWindow::mayDiscardChanges()
{
  return m_undo.isClean() ||
         QMessageBox::question(this, tr("Unsaved Changes"), tr("The drawing has unsaved changes. Discard them?"),
                               QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Cancel) == QMessageBox::Discard;
}

void DrawingEditorWindow::onOpen()
{
  if (!mayDiscardChanges())
    return;
  const QString path = QFileDialog::getOpenFileName(this, tr("Open Drawing"), QFileInfo(m_document.fileName()).path(),
                                                    tr("DXF drawings (*.dxf);;All files (*)"));
  if (path.isEmpty())
    return;
  QString error;
  if (!openFile(path, &error))
    QMessageBox::critical(this, tr("Open Drawing"), tr("%1 cannot be opened: %2").arg(QFileInfo(path).fileName(), error));
}

void DrawingEditorWindow::onSaveAs()
{
  QString path = QFileDialog::getSaveFileName(this, tr("Save Drawing As"), m_document.fileName(),
                                              tr("DXF drawings (*.dxf)"));
  if (path.isEmpty())
    return;
  if (QFileInfo(path).suffix().isEmpty())
    path += QStringLiteral(".dxf");
  QString error;
  if (!saveFile(path, &error))
    QMessageBox::critical(this, tr("Save Drawing As"), tr("%1 cannot be saved: %2").arg(QFileInfo(path).fileName(), error));
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

void DrawingEditorWindow::updateTitle()
{
  const QString name = m_document.fileName().isEmpty() ? tr("Sample drawing") : QFileInfo(m_document.fileName()).fileName();
  setWindowTitle(name + QStringLiteral("[*]"));
  setWindowModified(!m_undo.isClean());
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
  if (!mayDiscardChanges())
  {
    event->ignore();
    return;
  }
  if (m_catalogue)
    m_catalogue->close();
  event->accept();
}
