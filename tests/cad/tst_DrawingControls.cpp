#include "ChooserCatcher.h"
#include "ControlWindow.h"
#include "EveryKind.h"
#include "HostQtStyleManager.h"
#include "MessageCatcher.h"
#include "OdDbDatabase.h"
#include "OdDbLayerTableRecord.h"
#include "PropUiGuids.h"
#include "PropUiOptions.h"
#include "PropUiQArrowheadCtrl.h"
#include "PropUiQColorCtrl.h"
#include "PropUiQLayerCtrl.h"
#include "PropUiQLinetypeCtrl.h"
#include "PropUiQLineweightCtrl.h"
#include "PropUiQTextComboCtrl.h"
#include "PropUiRegistry.h"
#include "PropVariantConversions.h"
#include "QHostUiArrowHeadComboBox.h"
#include "QHostUiColorComboBox.h"
#include "QHostUiLineTypeComboBox.h"
#include "QHostUiLineWeightComboBox.h"
#include "RecordingBag.h"
#include "RunningModule.h"
#include "TestValues.h"
#include "hostColors.h"
#include "hostDbPropBagCtx.h"
#include <QAbstractItemModelTester>
#include <QAbstractItemView>
#include <QStandardItemModel>
#include <QtTest>

namespace
{

/** A drawing context that writes down what it was asked to translate, and answers as scripted. */
class DrawingContext : public hostDbPropBagCtx
{
public:
  explicit DrawingContext(OdDbDatabase* db) : hostDbPropBagCtx(db) {}
  bool translate(int, const PropVariant& in, PropVariant& out, bool* flag) override
  {
    asked.append(in);
    out = answers.isEmpty() ? in : answers.takeFirst();
    if (flag)
      *flag = true;
    return true;
  }
  bool isDisabledValue(int, const PropVariant& value) override { return disabled.contains(value.getUInt64()); }

  QVector<PropVariant> asked;
  QVector<PropVariant> answers;
  QVector<OdUInt64> disabled;
};

OdCmColor aci(int index)
{
  OdCmColor c;
  c.setColorIndex(OdInt16(index));
  return c;
}

QImage imageOf(const QIcon& icon)
{
  return icon.pixmap(QSize(16, 16)).toImage();
}

enum Kind
{
  Colour,
  Lineweight,
  Linetype,
  Arrowhead,
  Layer,
  Plain,
  TextCombo
};

/** A drawing with more than every drawing holds, and a bag over it. */
struct Fixture
{
  Fixture()
  {
    walls = db.addLayer(OdString(L"Walls"));
    frozen = db.addLayer(OdString(L"Frozen"));
    db.openLayer(frozen)->setIsFrozen(true);
    dashed = db.addLinetype(OdString(L"Dashed"), OdString(L"__ __"), OdDoubleArray{0.5, -0.25});
    dots = db.addLinetype(OdString(L"Dots"), OdString(L". ."), OdDoubleArray{0.0, -0.1});
    bag.context = &context;
    // Drawing values shown by name, as a host's bag would.
    bag.format = [this](int, const PropVariant& v, OdString& text) {
      OdDb::LineWeight w;
      if (v.type() == PropVariant::kLineWeight && propVariantToLineweight(v, w))
      {
        text = toOdString(host_qt_ui::QHostLineWeightListModel::weightText(w));
        return true;
      }
      text = toOdString(RecordingBag::textOf(v));
      return true;
    };
  }

  template <class Control>
  Control* bound(const PropVariant& value, int options = 0)
  {
    return boundControl<Control>(bag, bag.addItem(QStringLiteral("Attribute"), value), options);
  }

  PropUiQComboBox* bound(Kind kind, const PropVariant& value, int options = 0)
  {
    switch (kind)
    {
    case Colour: return bound<PropUiQColorCtrl>(value, options);
    case Lineweight: return bound<PropUiQLineweightCtrl>(value, options);
    case Linetype: return bound<PropUiQLinetypeCtrl>(value, options);
    case Arrowhead: return bound<PropUiQArrowheadCtrl>(value, options);
    case Layer: return bound<PropUiQLayerCtrl>(value, options);
    default: break;
    }
    // The plain and text combos list the item's own values: Solid, Dashed and Dotted; the text combo takes typing.
    const int item = bag.addItem(QStringLiteral("Style"), value);
    RecordingBag::Item& it = bag.item(item);
    it.listNames = QStringList{QStringLiteral("Solid"), QStringLiteral("Dashed"), QStringLiteral("Dotted")};
    for (int i = 0; i < it.listNames.size(); ++i)
      it.listValues.insert(static_cast<unsigned long>(i), textValue(it.listNames[i]));
    if (kind == Plain)
      return boundControl<PropUiQComboBox>(bag, item, options);
    it.flags = PropItemFlag::kEditableList;
    return boundControl<PropUiQTextComboCtrl>(bag, item, options);
  }

  /** A value the kind lists, so that the control shows it as an entry. */
  PropVariant listedValue(Kind kind)
  {
    switch (kind)
    {
    case Colour: return propVariantFromColor(aci(1));
    case Lineweight: return propVariantFromLineweight(OdDb::kLnWt050);
    case Linetype: return propVariantFromObjectId(dashed);
    case Arrowhead: return propVariantFromObjectId(db.getBlockId(OdString(L"_Dot")));
    case Layer: return propVariantFromObjectId(walls);
    default: return textValue(QStringLiteral("Solid"));
    }
  }

  OdDbDatabase db;
  OdDbObjectId walls, frozen, dashed, dots;
  DrawingContext context{&db};
  RecordingBag bag;
};

const char* const kKindNames[] = {"colour", "lineweight", "linetype", "arrowhead", "layer", "plain combo", "text combo"};

/** How a browse of a closed combo ends. */
enum class BrowseEnd
{
  Enter,
  Leaving,
  Pause,
  Escape,
  ListPick
};

} // namespace

Q_DECLARE_METATYPE(Kind)
Q_DECLARE_METATYPE(BrowseEnd)

/** A "kind" column with one row for each of the kinds, named after it. */
static void addKindRows(std::initializer_list<Kind> kinds)
{
  QTest::addColumn<Kind>("kind");
  for (Kind kind : kinds)
    QTest::newRow(kKindNames[kind]) << kind;
}

class TestDrawingControls : public QObject
{
  Q_OBJECT
  RunningModule module;

private slots:
  void init() { hostClearCustomColors(); }

  void byLayerAndDefaultAreResolvedOnlyWhenAsked_data()
  {
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<int>("options");
    QTest::addColumn<QVector<int> >("asked"); // what translate was asked, by number
    QTest::newRow("colour, ByLayer") << Colour << 0xB << QVector<int>{int(0xC0000000u)};
    QTest::newRow("colour, not") << Colour << 0xA << QVector<int>{};
    QTest::newRow("lineweight, both") << Lineweight << 0x7 << QVector<int>{-3, -1};
    QTest::newRow("lineweight, ByLayer only") << Lineweight << 0x3 << QVector<int>{-1};
    QTest::newRow("lineweight, Default only") << Lineweight << 0x6 << QVector<int>{-3};
    QTest::newRow("linetype, ByLayer") << Linetype << 0x7 << QVector<int>{-100};
    QTest::newRow("linetype, not") << Linetype << 0x6 << QVector<int>{};
  }

  void byLayerAndDefaultAreResolvedOnlyWhenAsked()
  {
    QFETCH(Kind, kind);
    QFETCH(int, options);
    QFETCH(QVector<int>, asked);
    Fixture f;
    if (kind == Colour)
      f.context.answers = {propVariantFromColor(aci(3))};
    QScopedPointer<PropUiQComboBox> control(f.bound(kind, f.listedValue(kind), options));
    QVector<int> seen;
    for (const PropVariant& v : f.context.asked)
      seen << (kind == Linetype ? (OdDbObjectId(v.getUInt64()) == f.db.getLinetypeByLayerId() ? -100 : 0) : int(v.getInt64()));
    QCOMPARE(seen, asked);
    // The ByLayer entry shows what the layer holds.
    if (kind == Colour && !asked.isEmpty())
      QCOMPARE(imageOf(control->comboBox()->itemIcon(0)), imageOf(hostQtGetColorIcon(aci(3), 16, 16)));
  }

  void theChooserEntryIsNoValue_data()
  {
    QTest::addColumn<bool>("announced");
    QTest::newRow("colour announced by the picker (0x8)") << true;
    QTest::newRow("colour committed as the last entry") << false;
  }

  void theChooserEntryIsNoValue()
  {
    QFETCH(bool, announced);
    ChooserCatcher choosers;
    choosers.pickColor = true;
    choosers.colorToPick = aci(30);
    Fixture f;
    QScopedPointer<PropUiQColorCtrl> control(
      f.bound<PropUiQColorCtrl>(propVariantFromColor(aci(1)), announced ? 0xB : 0x3));
    QComboBox* combo = control->comboBox();
    combo->setCurrentIndex(combo->count() - 1);
    emit combo->activated(combo->count() - 1);
    QTRY_COMPARE(f.bag.written.size(), 1);
    QCoreApplication::processEvents();
    QCOMPARE(f.bag.written.size(), 1);
    OdCmColor written;
    QVERIFY(propVariantToColor(f.bag.written[0], written));
    QCOMPARE(written, aci(30));
    QCOMPARE(combo->currentText(), QStringLiteral("Colour 30"));
  }

  void otherLinetypeIsChosenNotWritten()
  {
    ChooserCatcher choosers;
    Fixture f;
    QScopedPointer<PropUiQLinetypeCtrl> control(f.bound<PropUiQLinetypeCtrl>(propVariantFromObjectId(f.dashed)));
    QComboBox* combo = control->comboBox();
    // A cancelled chooser changes nothing.
    emit combo->activated(combo->count() - 1);
    QTRY_COMPARE(choosers.objectAsked, 1);
    QVERIFY(f.bag.written.isEmpty());
    QCOMPARE(combo->currentText(), QStringLiteral("Dashed"));
    // A linetype picked there is written once, as the handle.
    choosers.idToPick = f.dots;
    emit combo->activated(combo->count() - 1);
    QTRY_COMPARE(f.bag.written.size(), 1);
    QCOMPARE(f.bag.written[0].getUInt64(), f.dots.getHandle());
    QCOMPARE(combo->currentText(), QStringLiteral("Dots"));
  }

  void oneBrowseOfEveryComboKindGivesOneWrite_data()
  {
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<QVector<int> >("keys");
    QTest::addColumn<BrowseEnd>("end");
    QTest::addColumn<bool>("written"); // else the entry the browse began from shows again
    QTest::addColumn<int>("choosersOpened");
    // One entry on from where each kind starts; the linetype passes "Other..." on the way.
    const QVector<int> onwards{Qt::Key_Down, Qt::Key_Down, Qt::Key_Up};
    const std::pair<BrowseEnd, const char*> ends[] = {
      {BrowseEnd::Enter, "Enter"}, {BrowseEnd::Leaving, "leaving"}, {BrowseEnd::Pause, "a pause"}};
    for (Kind kind : {Colour, Lineweight, Linetype, Arrowhead, Layer, Plain, TextCombo})
    {
      for (const auto& [end, how] : ends)
        QTest::addRow("%s: on, then %s", kKindNames[kind], how) << kind << onwards << end << true << 0;
      QTest::addRow("%s: on, then Escape", kKindNames[kind]) << kind << onwards << BrowseEnd::Escape << false << 0;
      QTest::addRow("%s: on, then a pick from the list", kKindNames[kind])
        << kind << onwards << BrowseEnd::ListPick << true << 0;
      QTest::addRow("%s: back where it began", kKindNames[kind])
        << kind << QVector<int>{Qt::Key_Down, Qt::Key_Up} << BrowseEnd::Pause << false << 0;
    }
    QTest::newRow("plain combo: a letter") << Plain << QVector<int>{Qt::Key_D} << BrowseEnd::Pause << true << 0;
    // The chooser entries are last: only Enter on one opens its chooser, which the catcher cancels.
    for (Kind kind : {Colour, Linetype, Arrowhead})
      for (const auto& [end, how] : ends)
        QTest::addRow("%s: onto the chooser, then %s", kKindNames[kind], how)
          << kind << QVector<int>{Qt::Key_Down, Qt::Key_End} << end << false << (end == BrowseEnd::Enter ? 1 : 0);
  }

  void oneBrowseOfEveryComboKindGivesOneWrite()
  {
    QFETCH(Kind, kind);
    QFETCH(QVector<int>, keys);
    QFETCH(BrowseEnd, end);
    QFETCH(bool, written);
    QFETCH(int, choosersOpened);
    ChooserCatcher choosers;
    Fixture f;
    // GIVEN a focused combo of the kind, showing a value it lists
    const PropVariant start = kind == Layer ? propVariantFromObjectId(f.db.getLayerZeroId()) : f.listedValue(kind);
    PropUiQComboBox* control = f.bound(kind, start);
    ControlWindow window(control);
    QComboBox* combo = control->comboBox();
    const int from = combo->currentIndex();
    QVERIFY(window.showActive());
    combo->setFocus(Qt::TabFocusReason);
    QTRY_VERIFY(combo->hasFocus());

    // WHEN keys browse it closed, THEN each entry shows at once and nothing is written yet
    for (int key : keys)
      QTest::keyClick(combo, Qt::Key(key));
    const int reached = combo->currentIndex();
    QCOMPARE(f.bag.count(QStringLiteral("setValue")), 0);
    auto* pause = combo->findChild<QTimer*>(QStringLiteral("browsePause"));
    QVERIFY(pause && pause->isActive());

    // WHEN the browse ends
    switch (end)
    {
    case BrowseEnd::Enter: QTest::keyClick(combo, Qt::Key_Return); break;
    case BrowseEnd::Escape: QTest::keyClick(combo, Qt::Key_Escape); break;
    case BrowseEnd::Leaving: window.other->setFocus(Qt::TabFocusReason); break;
    case BrowseEnd::ListPick:
      combo->showPopup();
      QTRY_VERIFY(combo->view()->isVisible());
      QTest::keyClick(combo->view(), Qt::Key_Return);
      break;
    case BrowseEnd::Pause:
    {
      // The pause, without waiting for it.
      QTimerEvent elapsed(pause->timerId());
      QCoreApplication::sendEvent(pause, &elapsed);
      break;
    }
    }

    // THEN the entry reached is written once, or nothing is and the entry the browse began from shows
    QTRY_COMPARE(choosers.colorAsked + choosers.objectAsked, choosersOpened);
    QCoreApplication::processEvents();
    QCOMPARE(choosers.colorAsked + choosers.objectAsked, choosersOpened);
    QCOMPARE(f.bag.count(QStringLiteral("setValue")), written ? 1 : 0);
    QCOMPARE(combo->currentIndex(), written ? reached : from);
    QVERIFY(!pause->isActive());
    if (!written)
      return;
    // What was written is what a pick of that entry from the list writes.
    const PropVariant browsed = f.bag.written.last();
    QScopedPointer<PropUiQComboBox> picked(f.bound(kind, start));
    picked->comboBox()->setCurrentIndex(reached);
    picked->onActivated(reached);
    QCOMPARE(f.bag.written.size(), 2);
    QVERIFY(f.bag.written.last() == browsed);
  }

  void aPickerDeletedWhileItsChooserIsOpenGoesQuietly_data()
  {
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<int>("options");
    QTest::newRow("colour, chooser after the activation") << Colour << 0xB;
    QTest::newRow("colour, chooser inside the activation") << Colour << 0x3;
    QTest::newRow("linetype") << Linetype << 0;
    QTest::newRow("arrowhead") << Arrowhead << 0;
  }

  // A host rebuilds its palette after a pick: the deletion it asked for comes
  // while the chooser's own event loop runs. The real, modal chooser opens here.
  void aPickerDeletedWhileItsChooserIsOpenGoesQuietly()
  {
    QFETCH(Kind, kind);
    QFETCH(int, options);
    Fixture f;
    f.db.addBlock(OdString(L"Flag"));
    QPointer<PropUiQComboBox> control = f.bound(kind, f.listedValue(kind), options);
    QComboBox* combo = control->comboBox();
    // The user cancels whatever chooser is still open after a few turns of its loop.
    int turns = 0;
    QTimer user;
    connect(&user, &QTimer::timeout, [&turns]() {
      if (QWidget* modal = QApplication::activeModalWidget(); modal && ++turns > 3)
        modal->close();
    });
    user.start(0);

    control->deleteLater();
    combo->setCurrentIndex(combo->count() - 1);
    emit combo->activated(combo->count() - 1);
    QTRY_VERIFY(!control);

    QVERIFY(!QApplication::activeModalWidget());
    if (options != 0x3)
      QVERIFY(f.bag.written.isEmpty());
  }

  void aVaryingValueIsNeverATemporaryEntryAndAPickLeavesIt_data()
  {
    addKindRows({Colour, Lineweight, Linetype, Arrowhead, Layer});
  }

  void aVaryingValueIsNeverATemporaryEntryAndAPickLeavesIt()
  {
    QFETCH(Kind, kind);
    Fixture f;
    PropVariant v = kind == Colour       ? propVariantFromColor(aci(200))
                    : kind == Lineweight ? propVariantFromLineweight(OdDb::kLnWt050)
                                         : propVariantFromObjectId(kind == Linetype ? f.dots : f.walls);
    v.setVaries();
    QScopedPointer<PropUiQComboBox> control(f.bound(kind, v));
    const int entries = control->comboBox()->count();
    QVERIFY(control->isVaries());
    QCOMPARE(control->comboBox()->currentIndex(), -1);
    // The arrowhead control reads through its picker, never through a temporary entry; the lineweight control
    // lists every weight and is left out.
    if (kind != Arrowhead && kind != Lineweight)
      QCOMPARE(control->addTempItem(v), -1);
    QCOMPARE(control->comboBox()->count(), entries);
    // A pick leaves the varies state before the bag is asked.
    bool variesWhenAsked = true;
    f.bag.duringValidate = [&]() { variesWhenAsked = control->isVaries(); };
    control->comboBox()->setCurrentIndex(1);
    control->onActivated(1);
    QCOMPARE(f.bag.count(QStringLiteral("validate")), 1);
    QVERIFY(!variesWhenAsked);
    QCOMPARE(f.bag.written.size(), 1);
  }

  void aRefusedPickPutsThePreviousEntryBack_data()
  {
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<bool>("varies");
    QTest::addColumn<bool>("writeFails"); // else validate refuses it, with a word
    for (Kind kind : {Colour, Lineweight, Linetype, Arrowhead, Layer})
    {
      QTest::addRow("%s", kKindNames[kind]) << kind << false << false;
      QTest::addRow("%s, varies", kKindNames[kind]) << kind << true << false;
    }
    QTest::newRow("colour, the write fails") << Colour << false << true;
    QTest::newRow("lineweight, the write fails") << Lineweight << false << true;
  }

  void aRefusedPickPutsThePreviousEntryBack()
  {
    QFETCH(Kind, kind);
    QFETCH(bool, varies);
    QFETCH(bool, writeFails);
    MessageCatcher messages;
    Fixture f;
    PropVariant value = f.listedValue(kind);
    value.setVaries(varies);
    QScopedPointer<PropUiQComboBox> control(f.bound(kind, value));
    QComboBox* combo = control->comboBox();
    const int shown = combo->currentIndex();
    QCOMPARE(shown >= 0, !varies);
    QCOMPARE(control->lastCommittedIndex(), shown);
    f.bag.item(0).acceptValidate = writeFails;
    f.bag.item(0).acceptWrite = !writeFails;
    f.bag.item(0).validateMessage = QStringLiteral("Not on this object.");
    const int other = shown == 0 ? 1 : 0;
    combo->setCurrentIndex(other);
    control->onActivated(other);
    QCOMPARE(combo->currentIndex(), shown);
    // The colour control takes a pick whose write failed as its fallback all the same.
    QCOMPARE(control->lastCommittedIndex(), writeFails && kind == Colour ? other : shown);
    // A selection that varied still does: the field says so again.
    QCOMPARE(control->isVaries(), varies);
    QCOMPARE(combo->placeholderText(), varies ? QStringLiteral("*varies*") : QString());
    QVERIFY(f.bag.written.isEmpty());
    if (writeFails)
      return;
    QTRY_COMPARE(messages.shown.size(), 1);
    QCOMPARE(int(messages.shown[0].kind), int(host_qt_ui::QHostMessageBoxOd::Critical));
  }

  void aCommittedColourBecomesCustomEvenWhenRefused()
  {
    MessageCatcher messages;
    Fixture f;
    QScopedPointer<PropUiQColorCtrl> control(f.bound<PropUiQColorCtrl>(propVariantFromColor(aci(1))));
    auto* combo = qobject_cast<host_qt_ui::QHostUiColorComboBox*>(control->comboBox());
    f.bag.item(0).acceptValidate = false;
    const int index = combo->setSelectedColor(aci(140));
    control->onActivated(index);
    OdArray<OdCmColor> custom;
    hostGetCustomColors(custom);
    QCOMPARE(custom.size(), 1u);
    QCOMPARE(custom[0], aci(140));

    // A new control lists it once, before "Select Colour...".
    QScopedPointer<PropUiQColorCtrl> next(f.bound<PropUiQColorCtrl>(propVariantFromColor(aci(1))));
    QComboBox* nextCombo = next->comboBox();
    QCOMPARE(nextCombo->itemText(nextCombo->count() - 2), QStringLiteral("Colour 140"));
    QCOMPARE(nextCombo->findText(QStringLiteral("Colour 140")), nextCombo->count() - 2);
  }

  // What the every-kind table cannot give: ids of another drawing, and contexts without one.
  void badInputShowsWhatItCanAndWritesNothing()
  {
    Fixture f;
    // A value of the wrong kind: the default colour, no new entry.
    QScopedPointer<PropUiQColorCtrl> colour(f.bound<PropUiQColorCtrl>(textValue(QStringLiteral("purple"))));
    QCOMPARE(colour->comboBox()->currentText(), QStringLiteral("ByLayer"));
    // An id of another database: the bag's text, before "Other...", which stays last; choosing it writes nothing.
    OdDbDatabase elsewhere;
    QScopedPointer<PropUiQLinetypeCtrl> linetype(
      f.bound<PropUiQLinetypeCtrl>(propVariantFromObjectId(elsewhere.getLinetypeContinuousId())));
    QComboBox* linetypes = linetype->comboBox();
    QCOMPARE(linetypes->currentIndex(), linetypes->count() - 2);
    QCOMPARE(linetypes->itemText(linetypes->count() - 1), QStringLiteral("Other..."));
    linetype->onActivated(linetypes->currentIndex());
    QScopedPointer<PropUiQLayerCtrl> foreignLayer(f.bound<PropUiQLayerCtrl>(propVariantFromObjectId(elsewhere.getLayerZeroId())));
    foreignLayer->onActivated(foreignLayer->comboBox()->currentIndex());
    QScopedPointer<PropUiQArrowheadCtrl> arrow(f.bound<PropUiQArrowheadCtrl>(textValue(QStringLiteral("dot"))));
    QCOMPARE(arrow->comboBox()->currentIndex(), -1);
    // A context without a drawing, and one of another kind.
    PropBagCtxBase plain;
    hostDbPropBagCtx empty(nullptr);
    for (PropBagCtx* context : {static_cast<PropBagCtx*>(&plain), static_cast<PropBagCtx*>(&empty)})
    {
      f.bag.context = context;
      QScopedPointer<PropUiQLinetypeCtrl> noDrawing(f.bound<PropUiQLinetypeCtrl>(propVariantFromObjectId(f.dashed)));
      QScopedPointer<PropUiQLayerCtrl> layer(f.bound<PropUiQLayerCtrl>(propVariantFromObjectId(f.walls)));
      QCOMPARE(layer->comboBox()->count(), 1); // the bag's own text, nothing to choose from
      layer->onActivated(0);
      noDrawing->onActivated(0);
    }
    // Activations of entries that do not exist.
    for (PropUiQComboBox* control : std::initializer_list<PropUiQComboBox*>{colour.data(), linetype.data(), arrow.data()})
      for (int index : {-1, 1000})
        control->onActivated(index);
    QVERIFY(f.bag.written.isEmpty());
  }

  void layersListTheirStateAndDisabledOnesCannotBeChosen()
  {
    Fixture f;
    f.context.disabled = {f.frozen.getHandle()};
    QScopedPointer<PropUiQLayerCtrl> control(f.bound<PropUiQLayerCtrl>(propVariantFromObjectId(f.walls)));
    QComboBox* combo = control->comboBox();
    QStringList names;
    for (int i = 0; i < combo->count(); ++i)
      names << combo->itemText(i);
    QCOMPARE(names, (QStringList{QStringLiteral("0"), QStringLiteral("Walls"), QStringLiteral("Frozen")}));
    QCOMPARE(combo->currentText(), QStringLiteral("Walls"));
    QCOMPARE(combo->iconSize(), PropUiQLayerCtrl::pictureSize());
    auto* model = qobject_cast<QStandardItemModel*>(combo->model());
    QVERIFY(!model->item(2)->isEnabled());
    // Frozen and thawed layers of one colour look different.
    QVERIFY(imageOf(combo->itemIcon(1)) != imageOf(combo->itemIcon(2)));
    combo->setCurrentIndex(2);
    control->onActivated(2);
    QVERIFY(f.bag.written.isEmpty());
    QCOMPARE(combo->currentText(), QStringLiteral("Walls"));
    // A bag that hands out no drawing context by the time of the pick disables nothing.
    f.bag.context = nullptr;
    combo->setCurrentIndex(0);
    control->onActivated(0);
    QCOMPARE(f.bag.written.size(), 1);
    OdDbObjectId written;
    QVERIFY(propVariantToObjectId(f.bag.written[0], written));
    QCOMPARE(written, f.db.getLayerZeroId());
  }

  void listModelsKeepTheModelRules()
  {
    Fixture f;
    host_qt_ui::QHostLineTypeListModel linetypes;
    host_qt_ui::QHostLineWeightListModel weights;
    host_qt_ui::QHostArrowHeadListModel arrows;
    QAbstractItemModelTester t1(&linetypes, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QAbstractItemModelTester t2(&weights, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QAbstractItemModelTester t3(&arrows, QAbstractItemModelTester::FailureReportingMode::QtTest);
    linetypes.init(0x3, &f.db);
    QCOMPARE(linetypes.findRow(f.dots), 4);
    QCOMPARE(linetypes.idAt(4), f.dots);
    QCOMPARE(linetypes.findRow(OdDbObjectId(123456789)), -1);
    linetypes.setByLayerLinetype(f.dashed);
    QCOMPARE(imageOf(linetypes.data(linetypes.index(0, 0), Qt::DecorationRole).value<QIcon>()),
             imageOf(linetypes.data(linetypes.index(3, 0), Qt::DecorationRole).value<QIcon>()));
    linetypes.init(0x0, nullptr);
    QCOMPARE(linetypes.rowCount(), 0);

    weights.init(0x7);
    QCOMPARE(weights.findRow(OdDb::kLnWt211), 3 + 23);
    QCOMPARE(weights.weightAt(-1), OdDb::kLnWtByLayer);
    weights.setDefaultWeight(OdDb::kLnWt100);

    arrows.init(0x3);
    QCOMPARE(arrows.rowCount(), 1); // without a drawing, closed filled alone
    arrows.setCurrentDatabase(&f.db);
    arrows.init(0x3);
    QCOMPARE(arrows.findId(OdDbObjectId::kNull), 0);
    QCOMPARE(arrows.addBlock(f.walls), -1); // a layer is no block
  }

  void byLayerPicturesFollowWhatTheyStandForAndTheTheme_data() { addKindRows({Colour, Lineweight, Linetype}); }

  // Pictures are painted once per look and a refresh that finds its picture shown leaves it:
  // the look must still follow both the value ByLayer stands for and the theme.
  void byLayerPicturesFollowWhatTheyStandForAndTheTheme()
  {
    QFETCH(Kind, kind);
    Fixture f;
    host_qt_ui::QHostUiColorComboBox colours;
    host_qt_ui::QHostUiLineWeightComboBox weights;
    host_qt_ui::QHostUiLineTypeComboBox linetypes;
    linetypes.setDatabase(&f.db);
    QComboBox* const combo =
      kind == Colour ? static_cast<QComboBox*>(&colours) : kind == Lineweight ? static_cast<QComboBox*>(&weights) : &linetypes;
    const auto standFor = [&](bool other) {
      if (kind == Colour)
        colours.setColorByLayer(aci(other ? 5 : 1), true);
      else if (kind == Lineweight)
        weights.setLineweightByLayer(other ? OdDb::kLnWt211 : OdDb::kLnWt050, true);
      else
        linetypes.setLinetypeByLayer(other ? f.dots : f.dashed, true);
    };
    const auto shown = [combo] { return combo->itemIcon(0).pixmap(combo->iconSize()).toImage(); };
    HostQtStyleManager* style = hostGetQtStyleManager();
    const int theme = style->theme();

    standFor(false);
    const QImage first = shown();
    // Sharp on a high-density screen too: a kept picture holds both ratios.
    QCOMPARE(combo->itemIcon(0).availableSizes().size(), 2);
    standFor(true);
    QVERIFY(shown() != first);
    standFor(false);
    QCOMPARE(shown(), first);
    style->setTheme(theme == HostQtStyleManager::Dark ? HostQtStyleManager::Light : HostQtStyleManager::Dark);
    standFor(false);
    const QImage otherTheme = shown();
    style->setTheme(theme);
    QVERIFY(otherTheme != first);
    standFor(false);
    QCOMPARE(shown(), first);
  }

  void theDefaultLineweightFollowsTheDrawing()
  {
    Fixture f;
    host_qt_ui::QHostUiLineWeightComboBox weights;
    weights.setSelectedWeight(OdDb::kLnWt030);
    QVERIFY(f.db.setLWDEFAULT(OdDb::kLnWt100));
    weights.setDatabase(&f.db);
    const int row = weights.findData(int(OdDb::kLnWtByLwDefault));
    QCOMPARE(weights.itemData(row, Qt::ToolTipRole).toString(), QStringLiteral("1.00 mm"));
    QCOMPARE(weights.itemIcon(row).pixmap(weights.iconSize()).toImage(),
             weights.itemIcon(weights.findData(int(OdDb::kLnWt100))).pixmap(weights.iconSize()).toImage());
    QCOMPARE(weights.getSelectedWeight(), OdDb::kLnWt030);
    weights.setDatabase(nullptr);
    QCOMPARE(weights.itemData(row, Qt::ToolTipRole).toString(), QStringLiteral("0.25 mm"));
  }

  void pickersListTheDrawing()
  {
    Fixture f;
    host_qt_ui::QHostUiLineTypeComboBox linetypes;
    linetypes.setLineTypeOption(host_qt_ui::LineTypeOptions(0x7));
    linetypes.setDatabase(&f.db);
    QStringList names;
    for (int i = 0; i < linetypes.count(); ++i)
      names << linetypes.itemText(i);
    QCOMPARE(names, (QStringList{QStringLiteral("ByLayer"), QStringLiteral("ByBlock"), QStringLiteral("Continuous"),
                                 QStringLiteral("Dashed"), QStringLiteral("Dots"), QStringLiteral("Other...")}));
    // Dashes are drawn: a dashed line is not a continuous one.
    QVERIFY(imageOf(linetypes.itemIcon(2)) != imageOf(linetypes.itemIcon(3)));
    QCOMPARE(linetypes.itemIcon(3).availableSizes().size(), 2); // drawn for ratio 1 and 2

    // ByLayer and Default asked for, ByBlock not: those two, then every weight
    host_qt_ui::QHostUiLineWeightComboBox weights;
    weights.setLineWeightOption(host_qt_ui::LineWeightOptions(0x5));
    QCOMPARE(weights.count(), 2 + 24);
    QCOMPARE(weights.itemText(1), QStringLiteral("Default"));

    host_qt_ui::QHostUiArrowHeadComboBox arrows;
    arrows.setArrowOptions(host_qt_ui::ArrowOptions(0x3));
    const OdDbObjectId own = f.db.addBlock(OdString(L"MyArrow"));
    arrows.setCurrentDatabase(&f.db);
    QCOMPARE(arrows.itemText(arrows.count() - 2), QStringLiteral("MyArrow"));
    QCOMPARE(arrows.itemText(arrows.count() - 1), QStringLiteral("User Arrow..."));
    QCOMPARE(arrows.count(), 1 + OdDbDatabase::kArrowBlockCount + 2);
    OdDbObjectId id;
    arrows.setSelected(own);
    QVERIFY(arrows.getSelected(id));
    QCOMPARE(id, own);
    arrows.setCurrentIndex(arrows.count() - 1);
    QVERIFY(!arrows.getSelected(id));
  }
};

QTEST_MAIN(TestDrawingControls)
#include "tst_DrawingControls.moc"
