#include "DrawingDocument.h"
#include "DrawingPropertyBag.h"
#include "DxfReader.h"
#include "DxfWriter.h"
#include "MessageCatcher.h"
#include "OdRxModule.h"
#include "OdStringQt.h"
#include "PaletteGrid.h"
#include "PalettePanel.h"
#include "PropUiQLineEdit.h"
#include "PropWidgetsEntry.h"
#include "PropertyPalette.h"
#include "RealDrawings.h"
#include <QFileInfo>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QUndoStack>
#include <QtTest>
#include <algorithm>

// Under the sanitizers the shared list is already a sample; the biggest of it go too (see drawings()).
#if defined(__SANITIZE_ADDRESS__)
#define PROP_SANITIZED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(undefined_behavior_sanitizer)
#define PROP_SANITIZED 1
#endif
#endif

namespace
{

/** The real drawings the drawing tests share, without the biggest under the sanitizers. */
QStringList drawings()
{
  QStringList paths = realDrawings();
#ifdef PROP_SANITIZED
  // The drawing sheets hold thousands of lines and take seconds each here; the plain build opens them.
  paths.erase(std::remove_if(paths.begin(), paths.end(), [](const QString& path) { return QFileInfo(path).size() > 200 * 1024; }),
              paths.end());
#endif
  return paths;
}

QByteArray bytesOf(const QString& path)
{
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/** Items whose value cell is empty, in the grid: neither a value nor the varies state. */
QStringList blankRows(QAbstractItemModel* model)
{
  QStringList blank;
  for (int row = 0; row < model->rowCount(); ++row)
  {
    const QModelIndex item = model->index(row, 0);
    if (model->index(row, 1).data().toString().isEmpty())
      blank << item.data().toString();
    // A long polyline lists hundreds of coordinates; the first vertices stand for the rest.
    const int children = std::min(model->rowCount(item), 12);
    for (int e = 0; e < children; ++e)
      if (model->index(e, 1, item).data().toString().isEmpty())
        blank << item.data().toString() + QLatin1Char('/') + model->index(e, 0, item).data().toString();
  }
  return blank;
}

} // namespace

class TestPaletteOverDrawings : public QObject
{
  Q_OBJECT

private slots:
  void initTestCase()
  {
    QLocale::setDefault(QLocale::c());
    odrxCreateModuleObject()->initApp();
  }

  void cleanupTestCase() { odrxCreateModuleObject()->uninitApp(); }

  // GIVEN each real drawing with all its entities selected
  // WHEN the palette is built in both forms and the linetype scale is edited in the panel and undone
  // THEN every item shows something, and the drawing saves to the very bytes it saved to before
  void everyDrawingShowsItsPaletteAndUndoesExactly()
  {
    MessageCatcher messages;
    QTemporaryDir scratch;
    QVERIFY(scratch.isValid());
    const QStringList paths = drawings();
    QVERIFY(!paths.isEmpty());
    const QString before = scratch.filePath(QStringLiteral("before.dxf"));
    const QString after = scratch.filePath(QStringLiteral("after.dxf"));

    int entities = 0;
    int unreadable = 0;
    QElapsedTimer total;
    total.start();
    for (const QString& path : paths)
    {
      DrawingDocument document;
      QUndoStack undo;
      QString error;
      if (!readDxf(path, document, &error))
      {
        // Not the palette's business: the reader's own test looks at what it refuses.
        ++unreadable;
        continue;
      }
      QVector<quint64> all;
      for (const DrawingEntity& e : document.entities())
        all << e.handle;
      entities += all.size();
      if (all.isEmpty())
        continue;
      DrawingPropertyBag bag(&document, &undo);
      bag.setSelection(all);
      PropertyPalette palette(&bag);

      QCOMPARE(palette.panel()->controls().size(), bag.getItemCount());
      QVERIFY2(!palette.panel()->controls().contains(nullptr), qPrintable(path));
      QCOMPARE(palette.grid()->model()->rowCount(), bag.getItemCount());
      const QStringList blank = blankRows(palette.grid()->model());
      QVERIFY2(blank.isEmpty(), qPrintable(path + QStringLiteral(": ") + blank.join(QStringLiteral(", "))));

      QVERIFY2(writeDxf(before, document, &error), qPrintable(error));
      const int item = bag.findItem(OdString(L"Linetype scale"));
      auto* edit = qobject_cast<PropUiQLineEdit*>(palette.panel()->controls().value(item).data());
      QVERIFY2(edit, qPrintable(path));
      edit->lineEdit()->setText(QStringLiteral("3.25"));
      edit->onEditingFinished();
      QCOMPARE(undo.count(), 1);
      undo.undo();
      QVERIFY2(writeDxf(after, document, &error), qPrintable(error));
      QVERIFY2(bytesOf(after) == bytesOf(before), qPrintable(path));
    }
    QVERIFY(messages.shown.isEmpty());
    const int opened = paths.size() - unreadable;
    qInfo("%d drawings opened (%d unreadable), %d entities; %.1f ms per drawing", opened, unreadable, entities,
          opened ? double(total.elapsed()) / opened : 0.0);
    QVERIFY(opened > 0);
  }
};

QTEST_MAIN(TestPaletteOverDrawings)
#include "tst_PaletteOverDrawings.moc"
