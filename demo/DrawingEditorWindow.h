#pragma once

#include "DrawingDocument.h"
#include "DrawingPropertyBag.h"
#include "EditorPrompts.h"
#include "RecentFiles.h"
#include <QMainWindow>
#include <QPointer>
#include <QUndoStack>
#include <memory>

class DemoBag;
class DemoWindow;
class DrawingCanvas;
class PropertyPalette;
class QActionGroup;
class QMenu;
class QSplitter;

/**
 * The demo host as a small drawing editor: the drawing in the middle and the
 * property palette of its selection beside it, with undo, files and themes.
 * The File menu's actions are named "actionNew", "actionOpen", "actionSave",
 * "actionSaveAs" and "actionQuit", the recent drawings' menu "menuRecent".
 */
class DrawingEditorWindow : public QMainWindow
{
  Q_OBJECT

public:
  explicit DrawingEditorWindow(QWidget* parent = nullptr);
  ~DrawingEditorWindow() override;

  /**
   * Reads a drawing in place of the current one; on failure the current one stays and error says why.
   * @p skipped, when given, receives how many objects of kinds the editor does not know were left out.
   */
  bool openFile(const QString& path, QString* error, int* skipped = nullptr);
  /** Starts from the drawing the demo makes, with every kind of entity in it. */
  void openSample();
  /** Starts an empty drawing without a file: layer 0 and the standard linetypes. */
  void newDrawing();
  /** Writes the drawing to @p path without asking anything; on success it is the drawing's file and clean. */
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
  /**
   * Takes the place and size the window had when it was last closed, or
   * 85% of the screen, centred; either way the window, palette included,
   * lies wholly on the screen's available area.
   */
  void placeOnScreen();
  /** Who answers the window's questions and file choosers; a test passes its own. Never null. */
  void setPrompts(std::unique_ptr<EditorPrompts> prompts);
  RecentFiles& recentFiles() { return m_recent; }

protected:
  void closeEvent(QCloseEvent* event) override;

private:
  void buildMenus();
  void fillRecentMenu();
  /** True when there is nothing unsaved, or the user saved it or agreed to lose it. */
  bool maySaveOrDiscardChanges();
  void onNew();
  void onOpen();
  void openRecent(const QString& path);
  /** Opens @p path as the user asked, saying why when it cannot. */
  void openChosen(const QString& path);
  /** Writes to the drawing's file, or asks for one first; false when nothing was written. */
  bool save();
  bool saveAs();
  /** Says what the save changes beyond the edits, when it does, and writes unless the user cancels. */
  bool writeDrawing(const QString& path);
  /** A notice with its reason below; nothing to choose. */
  void tell(QMessageBox::Icon icon, const QString& title, const QString& text, const QString& why = QString());
  void onSelectionChanged();
  void afterDocumentReset();
  void updateTitle();
  QString shownName() const;
  void fitPalette();

  DrawingDocument m_document;
  QUndoStack m_undo;
  DrawingPropertyBag m_bag;
  RecentFiles m_recent;
  std::unique_ptr<EditorPrompts> m_prompts;
  /** A drawing without a file is the demo's sample or a new one. */
  bool m_isSample = false;
  QPointer<QSplitter> m_split;
  QPointer<DrawingCanvas> m_canvas;
  QPointer<PropertyPalette> m_palette;
  QPointer<QActionGroup> m_themes;
  QPointer<QMenu> m_recentMenu;
  std::unique_ptr<DemoBag> m_catalogueBag;
  std::unique_ptr<DemoWindow> m_catalogue;
};
