#pragma once

#include "DrawingDocument.h"
#include "DrawingPropertyBag.h"
#include <QMainWindow>
#include <QPointer>
#include <QUndoStack>
#include <memory>

class DemoBag;
class DemoWindow;
class DrawingCanvas;
class PropertyPalette;
class QActionGroup;

/**
 * The demo host as a small drawing editor: the drawing in the middle and the
 * property palette of its selection beside it, with undo, files and themes.
 */
class DrawingEditorWindow : public QMainWindow
{
  Q_OBJECT

public:
  explicit DrawingEditorWindow(QWidget* parent = nullptr);
  ~DrawingEditorWindow() override;

  /** Reads a drawing in place of the current one; on failure the current one stays and error says why. */
  bool openFile(const QString& path, QString* error);
  /** Starts from the drawing the demo makes, with every kind of entity in it. */
  void openSample();
  bool saveFile(const QString& path, QString* error);
  /** Selects entities of different kinds whose values partly agree, as a user comparing them would. */
  void selectMixed();
  void setTheme(int theme);
  /** Shows the palette's panel (0) or grid (1). */
  void setPaletteForm(int form);
  /** Renders the window into a picture at the given scale (2 for a high-density screen). */
  bool saveScreenshot(const QString& path, qreal scale = 1.0);
  DrawingDocument& document() { return m_document; }
  QUndoStack& undoStack() { return m_undo; }
  PropertyPalette* propertyPalette() const;
  /** The catalogue of every control kind over the demo's sample bag. */
  void showCatalogue();

protected:
  void closeEvent(QCloseEvent* event) override;

private:
  void buildMenus();
  /** True when there is nothing unsaved, or the user agrees to lose it. */
  bool mayDiscardChanges();
  void onOpen();
  void onSaveAs();
  void onSelectionChanged();
  void afterDocumentReset();
  void updateTitle();

  DrawingDocument m_document;
  QUndoStack m_undo;
  DrawingPropertyBag m_bag;
  QPointer<DrawingCanvas> m_canvas;
  QPointer<PropertyPalette> m_palette;
  QPointer<QActionGroup> m_themes;
  std::unique_ptr<DemoBag> m_catalogueBag;
  std::unique_ptr<DemoWindow> m_catalogue;
};
