#include "DrawingEditorWindow.h"
#include "DxfWriter.h"
#include "PropertyPalette.h"
#include "RunningModule.h"
#include <QMenu>
#include <QScreen>
#include <QtTest>

namespace
{

/** Answers the window's questions from a script and records what it was asked; never opens a window. */
class ScriptedPrompts : public EditorPrompts
{
public:
  QVector<QMessageBox::StandardButton> answers;
  QStringList asked;
  QString lastDetails;
  QString savePath;
  QString openPath;
  int saveChoosers = 0;

  QMessageBox::StandardButton ask(QWidget*, const Question& question) override
  {
    asked << question.title;
    lastDetails = question.details;
    return answers.isEmpty() ? QMessageBox::Ok : answers.takeFirst();
  }
  QString openFileName(QWidget*, const QString&, const QString&, const QString&) override { return openPath; }
  QString saveFileName(QWidget*, const QString&, const QString&, const QString&, const QString&) override
  {
    ++saveChoosers;
    return savePath;
  }
};

/** Gives @p window scripted prompts and the sample drawing with an edit not saved. */
ScriptedPrompts* editedSample(DrawingEditorWindow& window)
{
  auto* prompts = new ScriptedPrompts;
  window.setPrompts(std::unique_ptr<EditorPrompts>(prompts));
  window.openSample();
  window.undoStack().push(new QUndoCommand(QStringLiteral("edit")));
  return prompts;
}

QAction* action(DrawingEditorWindow& window, const char* name)
{
  return window.findChild<QAction*>(QLatin1String(name));
}

/** Picks @p path from File > Open Recent as a user would, after the menu was filled on showing. */
bool chooseRecent(DrawingEditorWindow& window, const QString& path)
{
  auto* menu = window.findChild<QMenu*>(QStringLiteral("menuRecent"));
  Q_EMIT menu->aboutToShow();
  for (QAction* entry : menu->actions())
    if (entry->data().toString() == path)
    {
      entry->trigger();
      return true;
    }
  return false;
}

} // namespace

class TestDrawingEditor : public QObject
{
  Q_OBJECT
  RunningModule module;
  QTemporaryDir m_dir;

  QString path(const QString& name) const { return m_dir.filePath(name); }

private slots:
  void initTestCase()
  {
    QLocale::setDefault(QLocale::c());
    // The recent drawings and the window's place go to a scratch folder, not the settings of whoever runs the test.
    QVERIFY(m_dir.isValid());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, path(QStringLiteral("settings")));
    // A drawing to open: one line in a file of its own.
    DrawingDocument other;
    DrawingEntity line;
    line.kind = EntityKind::Line;
    line.points = {{0, 0, 0}, {10, 5, 0}};
    other.addEntity(line);
    QString error;
    QVERIFY2(writeDxf(path(QStringLiteral("other.dxf")), other, &error), qPrintable(error));
  }
  void init() { RecentFiles().clear(); }

  // Save writes first and the action follows only after a save; Cancel, a cancelled
  // file chooser or a failed save leave the drawing and its edits as they were.
  void unsavedChangesQuestion_data()
  {
    QTest::addColumn<QString>("act");
    QTest::addColumn<int>("answer");
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<bool>("proceeds");
    QTest::addColumn<QString>("written");
    QTest::addColumn<QStringList>("asked");
    const QString named = QStringLiteral("named.dxf");
    const QStringList question{QStringLiteral("Unsaved Changes")};
    const QStringList failed{QStringLiteral("Unsaved Changes"), QStringLiteral("Save Drawing")};
    QTest::newRow("new, discard") << "new" << int(QMessageBox::Discard) << named << "" << true << "" << question;
    QTest::newRow("new, cancel") << "new" << int(QMessageBox::Cancel) << named << "" << false << "" << question;
    QTest::newRow("new, save") << "new" << int(QMessageBox::Save) << named << "" << true << named << question;
    QTest::newRow("open, save without a name: chooser") << "open" << int(QMessageBox::Save) << "" << "chosen.dxf" << true
                                                         << "chosen.dxf" << question;
    QTest::newRow("open, save without a name: chooser cancelled") << "open" << int(QMessageBox::Save) << "" << "" << false
                                                                   << "" << question;
    QTest::newRow("open, cancel") << "open" << int(QMessageBox::Cancel) << named << "" << false << "" << question;
    QTest::newRow("recent, discard") << "recent" << int(QMessageBox::Discard) << named << "" << true << "" << question;
    QTest::newRow("close, discard") << "close" << int(QMessageBox::Discard) << "" << "" << true << "" << question;
    QTest::newRow("close, cancel") << "close" << int(QMessageBox::Cancel) << named << "" << false << "" << question;
    QTest::newRow("close, save fails") << "close" << int(QMessageBox::Save) << "missing-folder/x.dxf" << "" << false << ""
                                       << failed;
  }
  void unsavedChangesQuestion()
  {
    QFETCH(QString, act);
    QFETCH(int, answer);
    QFETCH(QString, fileName);
    QFETCH(QString, chosen);
    QFETCH(bool, proceeds);
    QFETCH(QString, written);
    QFETCH(QStringList, asked);
    for (const QString& name : {QStringLiteral("named.dxf"), QStringLiteral("chosen.dxf")})
      QFile::remove(path(name));

    // GIVEN the sample drawing, under a file name or none, with an edit not saved
    DrawingEditorWindow window;
    ScriptedPrompts* prompts = editedSample(window);
    if (!fileName.isEmpty())
      window.document().setFileName(path(fileName));
    const std::size_t sampleSize = window.document().entities().size();
    prompts->answers = {QMessageBox::StandardButton(answer)};
    prompts->savePath = chosen.isEmpty() ? QString() : path(chosen);
    prompts->openPath = path(QStringLiteral("other.dxf"));
    RecentFiles().add(prompts->openPath);

    // WHEN the user starts a new drawing, opens one or closes the window
    bool closed = false;
    if (act == QLatin1String("new"))
      action(window, "actionNew")->trigger();
    else if (act == QLatin1String("open"))
      action(window, "actionOpen")->trigger();
    else if (act == QLatin1String("recent"))
      QVERIFY(chooseRecent(window, prompts->openPath));
    else
      closed = window.close();

    // THEN the question came once, what was chosen was written, and the action went ahead only after it
    QCOMPARE(prompts->asked, asked);
    QCOMPARE(prompts->saveChoosers, fileName.isEmpty() && answer == QMessageBox::Save ? 1 : 0);
    if (asked.contains(QStringLiteral("Save Drawing")))
      QVERIFY2(prompts->lastDetails.contains(QStringLiteral("missing-folder does not exist")), qPrintable(prompts->lastDetails));
    for (const QString& name : {QStringLiteral("named.dxf"), QStringLiteral("chosen.dxf")})
      QCOMPARE(QFile::exists(path(name)), name == written);
    const DrawingDocument& document = window.document();
    if (act == QLatin1String("close"))
      QCOMPARE(closed, proceeds);
    else if (act == QLatin1String("new"))
      QCOMPARE(document.entities().empty(), proceeds);
    else
      QCOMPARE(document.fileName() == prompts->openPath, proceeds);
    if (!proceeds)
    {
      QCOMPARE(document.entities().size(), sampleSize);
      QVERIFY(window.isWindowModified());
    }
    if (act == QLatin1String("new") && proceeds)
    {
      // the usual layer 0 and linetypes, and no file yet
      QVERIFY(!document.database().getLayerId(OdString(L"0")).isNull());
      QVERIFY(!document.database().getLinetypeContinuousId().isNull());
      QVERIFY(document.fileName().isEmpty());
      QVERIFY(!window.isWindowModified());
    }
  }

  // Ctrl+S writes to the drawing's file without a chooser; the title loses its mark
  // until an undo takes the drawing away from what the file holds, and a redo brings it back.
  void saveMarksTheDrawingClean()
  {
    DrawingEditorWindow window;
    ScriptedPrompts* prompts = editedSample(window);
    const QString file = path(QStringLiteral("saved.dxf"));
    QFile::remove(file);
    window.document().setFileName(file);
    QVERIFY(window.isWindowModified());

    QCOMPARE(action(window, "actionSave")->shortcut(), QKeySequence(QKeySequence::Save));
    action(window, "actionSave")->trigger();

    QVERIFY(QFile::exists(file));
    QCOMPARE(prompts->saveChoosers, 0);
    QVERIFY(prompts->asked.isEmpty());
    QVERIFY(!window.isWindowModified());
    QCOMPARE(window.windowTitle(), QStringLiteral("saved.dxf[*]"));
    QCOMPARE(RecentFiles().files(), QStringList{file});
    window.undoStack().undo();
    QVERIFY(window.isWindowModified());
    window.undoStack().redo();
    QVERIFY(!window.isWindowModified());
  }

  // The window, palette included, lies wholly on the screen: at its first size and
  // when the place kept from the last session was on a larger screen or beside this one.
  void placedWhollyOnScreen_data()
  {
    QTest::addColumn<QRect>("kept");
    QTest::newRow("first size") << QRect();
    QTest::newRow("kept larger than the screen") << QRect(40, 30, 3000, 2000);
    QTest::newRow("kept beside the screen") << QRect(5000, 100, 500, 400);
  }
  void placedWhollyOnScreen()
  {
    QFETCH(QRect, kept);
    QSettings settings(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("libPropWidgets"),
                       QStringLiteral("propwidgets-demo"));
    settings.remove(QStringLiteral("editor/geometry"));
    if (kept.isValid())
    {
      DrawingEditorWindow before;
      before.setGeometry(kept);
      settings.setValue(QStringLiteral("editor/geometry"), before.saveGeometry());
    }
    settings.sync();

    DrawingEditorWindow window;
    window.placeOnScreen();
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
    const auto shown = [](const QRect& r) { return QStringLiteral("%1,%2 %3x%4").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height()); };
    QVERIFY2(available.contains(window.frameGeometry()),
             qPrintable(shown(window.frameGeometry()) + QStringLiteral(" on ") + shown(available)));
    QWidget* palette = window.propertyPalette();
    const QRect paletteOnScreen(palette->mapToGlobal(QPoint(0, 0)), palette->size());
    QVERIFY(available.contains(paletteOnScreen));
    QVERIFY(palette->width() > 0);
    if (!kept.isValid())
      QVERIFY((window.geometry().center() - available.center()).manhattanLength() <= 2);
  }

  // A recent drawing that is gone is dropped with a word, before any question about unsaved changes;
  // Clear empties the list.
  void recentFileGoneIsDropped()
  {
    DrawingEditorWindow window;
    ScriptedPrompts* prompts = editedSample(window);
    const QString gone = path(QStringLiteral("gone.dxf"));
    const QString there = path(QStringLiteral("other.dxf"));
    window.recentFiles().add(there);
    window.recentFiles().add(gone);

    QVERIFY(chooseRecent(window, gone));

    QCOMPARE(prompts->asked, QStringList{QStringLiteral("Open Recent Drawing")});
    QCOMPARE(window.recentFiles().files(), QStringList{there});
    QVERIFY(window.document().fileName().isEmpty());
    QVERIFY(window.isWindowModified());
    action(window, "actionClearRecent")->trigger();
    QVERIFY(window.recentFiles().files().isEmpty());
  }
};

QTEST_MAIN(TestDrawingEditor)
#include "tst_DrawingEditor.moc"
