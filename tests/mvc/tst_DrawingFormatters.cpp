#include "OdDbDatabase.h"
#include "OdDbLayerTableRecord.h"
#include "PropUiGuids.h"
#include "PropUiQArrowheadFormatter.h"
#include "PropUiQColorFormatter.h"
#include "PropUiQLayerFormatter.h"
#include "PropUiQLineTypeFormatter.h"
#include "PropUiQLineWeightFormatter.h"
#include "PropGrid.h"
#include "PropUiQComboBox.h"
#include "PropUiRegistry.h"
#include "PropVariantConversions.h"
#include "RecordingBag.h"
#include "RunningModule.h"
#include "TestValues.h"
#include "hostDbPropBagCtx.h"
#include <QHeaderView>
#include <QtTest>

namespace
{

QImage imageOf(const QVariant& icon, const QSize& size = QSize(40, 16))
{
  return icon.value<QIcon>().pixmap(size).toImage();
}

OdCmColor aci(int index)
{
  OdCmColor c;
  c.setColorIndex(OdInt16(index));
  return c;
}

enum Kind
{
  Colour,
  Lineweight,
  Linetype,
  Layer
};

enum Case
{
  Listed,
  ByLayer,
  ByBlock,
  Default,
  Varies,
  Unlisted
};

/** A drawing whose layer Walls holds a colour, width and linetype of its own, and a bag over it. */
struct Drawing
{
  /** ByLayer stands for what Walls holds, as for a host whose selection is all on Walls. */
  class WallsContext : public hostDbPropBagCtx
  {
  public:
    explicit WallsContext(Drawing& d) : hostDbPropBagCtx(&d.db), m_d(d) {}
    bool translate(int, const PropVariant& in, PropVariant& out, bool* flag) override
    {
      const OdDbLayerTableRecord* walls = m_d.db.openLayer(m_d.walls);
      OdCmColor color;
      OdDb::LineWeight weight;
      OdDbObjectId id;
      out = in;
      if (propVariantToColor(in, color) && color.isByLayer())
        out = propVariantFromColor(walls->color());
      else if (propVariantToLineweight(in, weight) && weight == OdDb::kLnWtByLayer)
        out = propVariantFromLineweight(walls->lineWeight());
      else if (propVariantToObjectId(in, id) && id == m_d.db.getLinetypeByLayerId())
        out = propVariantFromObjectId(walls->linetypeObjectId());
      *flag = true;
      return true;
    }

  private:
    Drawing& m_d;
  };

  Drawing()
  {
    walls = db.addLayer(OdString(L"Walls"));
    dashed = db.addLinetype(OdString(L"Dashed"), OdString(), OdDoubleArray{0.5, -0.25});
    dots = db.addLinetype(OdString(L"Dots"), OdString(), OdDoubleArray{0.0, -0.1});
    OdDbLayerTableRecord* layer = db.openLayer(walls);
    layer->setColor(aci(5));
    layer->setLineWeight(OdDb::kLnWt211);
    layer->setLinetypeObjectId(dots);
    layer->setIsFrozen(true);
    layer->setIsLocked(true);
    db.setLWDEFAULT(OdDb::kLnWt100);
    bag.context = &context;
    // The bag names only what no picker lists: every other text is the picker's.
    bag.format = [this](int, const PropVariant& value, OdString& text) {
      text = OdString(L"as the bag says");
      return value == unlisted;
    };
  }

  /** The kind's value for the case; `standsFor` is what it is drawn as, where that is another value. */
  PropVariant value(Kind kind, Case c, PropVariant* standsFor = nullptr)
  {
    const OdDbObjectId nowhere(987654321);
    switch (kind)
    {
    case Colour:
    {
      const OdCmColor colours[] = {aci(1), OdCmColor(OdCmEntityColor::kByLayer), OdCmColor(OdCmEntityColor::kByBlock),
                                   aci(1), aci(1), aci(30)};
      if (standsFor && c == ByLayer)
        *standsFor = propVariantFromColor(aci(5));
      return propVariantFromColor(colours[c]);
    }
    case Lineweight:
    {
      if (standsFor && (c == ByLayer || c == Default))
        *standsFor = propVariantFromLineweight(c == ByLayer ? OdDb::kLnWt211 : OdDb::kLnWt100);
      const OdDb::LineWeight weights[] = {OdDb::kLnWt050, OdDb::kLnWtByLayer, OdDb::kLnWtByBlock,
                                          OdDb::kLnWtByLwDefault, OdDb::kLnWt050};
      return c == Unlisted ? intValue(37) : propVariantFromLineweight(weights[c]);
    }
    case Linetype:
    {
      if (standsFor && c == ByLayer)
        *standsFor = propVariantFromObjectId(dots);
      const OdDbObjectId ids[] = {dashed, db.getLinetypeByLayerId(), db.getLinetypeByBlockId(), dashed, dashed, nowhere};
      return propVariantFromObjectId(ids[c]);
    }
    default:
      return propVariantFromObjectId(c == Unlisted ? nowhere : walls);
    }
  }

  OdDbDatabase db;
  OdDbObjectId walls, dashed, dots;
  WallsContext context{*this};
  RecordingBag bag;
  PropVariant unlisted;
};

/**
 * Whether the picture, as held for the shot's pixel ratio, is somewhere inside
 * the area of the shot pixel for pixel: drawn from a picture for another
 * ratio, it would be blurred or blocky. Pixels the picture only partly covers
 * are left out, as they blend with what is below.
 */
bool drawnSharp(const QImage& shot, const QRect& area, const QIcon& picture, const QSize& size)
{
  const int ratio = int(shot.devicePixelRatio());
  const QImage wanted = picture.pixmap(size * ratio).toImage().convertToFormat(QImage::Format_ARGB32);
  const QRect inShot(area.topLeft() * ratio, area.size() * ratio);
  for (int y = inShot.top(); y + wanted.height() <= inShot.bottom() + 1; ++y)
    for (int x = inShot.left(); x + wanted.width() <= inShot.right() + 1; ++x)
    {
      bool same = true;
      for (int j = 0; same && j < wanted.height(); ++j)
        for (int i = 0; same && i < wanted.width(); ++i)
        {
          const QRgb pixel = wanted.pixel(i, j);
          same = qAlpha(pixel) < 255 || shot.pixel(x + i, y + j) == pixel;
        }
      if (same)
        return true;
    }
  return false;
}

const char* const kKindNames[] = {"colour", "lineweight", "linetype", "layer"};
const char* const kCaseNames[] = {"listed", "ByLayer", "ByBlock", "Default", "varies", "unlisted"};
const OdGUID* const kGuids[] = {&PropUiGuidColor, &PropUiGuidLineweight, &PropUiGuidLinetype, &PropUiGuidLayer};

} // namespace

Q_DECLARE_METATYPE(Kind)
Q_DECLARE_METATYPE(Case)

class TestDrawingFormatters : public QObject
{
  Q_OBJECT
  RunningModule module;

private slots:
  void aCellShowsWhatThePanelsControlShows_data()
  {
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<Case>("c");
    QTest::addColumn<QString>("text");
    const QString texts[4][6] = {{"Red", "ByLayer", "ByBlock", "", "*varies*", "Colour 30"},
                                 {"0.50 mm", "ByLayer", "ByBlock", "Default", "*varies*", "as the bag says"},
                                 {"Dashed", "ByLayer", "ByBlock", "", "*varies*", "as the bag says"},
                                 {"Walls", "", "", "", "*varies*", "as the bag says"}};
    for (Kind kind : {Colour, Lineweight, Linetype, Layer})
      for (Case c : {Listed, ByLayer, ByBlock, Default, Varies, Unlisted})
        if (!texts[kind][c].isEmpty())
          QTest::addRow("%s, %s", kKindNames[kind], kCaseNames[c]) << kind << c << texts[kind][c];
  }

  // The same bag in a panel's control and in a grid's tree view with the standard delegate: the
  // same text, the same picture, a value that stands for another drawn as that one, and the
  // picture drawn sharp at twice the density. The bag names nothing the pickers list.
  void aCellShowsWhatThePanelsControlShows()
  {
    QFETCH(Kind, kind);
    QFETCH(Case, c);
    QFETCH(QString, text);
    Drawing d;
    PropVariant standsFor;
    PropVariant value = d.value(kind, c, &standsFor);
    if (c == Varies)
      value.setVaries();
    if (c == Unlisted)
      d.unlisted = value;
    for (const PropVariant& v : {value, standsFor})
      d.bag.item(d.bag.addItem(QStringLiteral("Attribute"), v)).guid = *kGuids[kind];

    QScopedPointer<PropUiQComboBox> control(
      qobject_cast<PropUiQComboBox*>(propUiCreateWidget(*kGuids[kind], int(d.bag.getFlags(0)))));
    QVERIFY(control);
    control->setPropBagItem(&d.bag, 0);
    control->setupUi();
    control->updateUi();
    control->updateData();
    QComboBox* combo = control->comboBox();
    const QString controlText = combo->currentIndex() < 0 ? combo->placeholderText() : combo->currentText();
    const QIcon controlPicture = combo->itemIcon(combo->currentIndex());

    PropGrid grid(d.bag);
    QTreeView& view = grid.view;
    const QModelIndex cell = grid.model->index(0, 1);
    const QIcon cellPicture = cell.data(Qt::DecorationRole).value<QIcon>();

    QCOMPARE(cell.data().toString(), text);
    QCOMPARE(controlText, text);
    const QSize size = combo->iconSize();
    QCOMPARE(imageOf(cellPicture, size), imageOf(controlPicture, size));
    QCOMPARE(cellPicture.isNull(), c == Varies || (c == Unlisted && kind != Colour));
    if (!(standsFor == PropVariant()))
      QCOMPARE(imageOf(cellPicture, size), imageOf(grid.model->index(1, 1).data(Qt::DecorationRole), size));

    view.resize(400, 120);
    view.header()->resizeSection(0, 100);
    QImage shot(view.viewport()->size() * 2, QImage::Format_ARGB32);
    shot.setDevicePixelRatio(2);
    view.viewport()->render(&shot);
    QVERIFY(drawnSharp(shot, view.visualRect(cell), cellPicture, size));
  }

  void iconsFollowTheValueAndNoneForAnotherKind_data()
  {
    QTest::addColumn<int>("kind");
    QTest::newRow("layer") << 0;
    QTest::newRow("colour") << 1;
    QTest::newRow("linetype") << 2;
    QTest::newRow("lineweight") << 3;
    QTest::newRow("arrowhead") << 4;
  }

  void iconsFollowTheValueAndNoneForAnotherKind()
  {
    QFETCH(int, kind);
    OdDbDatabase db;
    const OdDbObjectId walls = db.addLayer(OdString(L"Walls"));
    db.openLayer(walls)->setColor(aci(1));
    db.openLayer(walls)->setColor(aci(5), db.activeViewportId());
    const OdDbObjectId dashed = db.addLinetype(OdString(L"Dashed"), OdString(), OdDoubleArray{0.5, -0.25});
    hostDbPropBagCtx context(&db);
    RecordingBag bag;
    bag.context = &context;
    QObject owner;
    PropUiQFormatter* formatter = nullptr;
    PropVariant one, two;
    switch (kind)
    {
    case 0:
      formatter = new PropUiQLayerFormatter(&owner);
      one = propVariantFromObjectId(walls);
      two = propVariantFromObjectId(db.getLayerZeroId());
      break;
    case 1:
      formatter = new PropUiQColorFormatter(&owner);
      one = propVariantFromColor(aci(1));
      two = propVariantFromColor(aci(3));
      break;
    case 2:
      formatter = new PropUiQLineTypeFormatter(&owner);
      one = propVariantFromObjectId(dashed);
      two = propVariantFromObjectId(db.getLinetypeContinuousId());
      break;
    case 3:
      formatter = new PropUiQLineWeightFormatter(&owner);
      one = propVariantFromLineweight(OdDb::kLnWt200);
      two = propVariantFromLineweight(OdDb::kLnWt013);
      break;
    default:
      formatter = new PropUiQArrowheadFormatter(&owner);
      one = propVariantFromObjectId(db.getBlockId(OdString(L"_Dot")));
      two = propVariantFromObjectId(db.getBlockId(OdString(L"_Oblique")));
      break;
    }
    const int item = bag.addItem(QStringLiteral("Attribute"), one);
    bag.format = [](int, const PropVariant&, OdString& text) {
      text = OdString(L"as the bag says");
      return true;
    };
    formatter->setPropBag(&bag);

    // An arrowhead's text is the bag's; the other kinds name their values as their controls do.
    if (kind == 4)
      QCOMPARE(formatter->getText(item, one), QStringLiteral("as the bag says"));
    const QVariant first = formatter->getIcon(item, one);
    const QVariant second = formatter->getIcon(item, two);
    QVERIFY(first.isValid());
    QVERIFY(second.isValid());
    QVERIFY(imageOf(first) != imageOf(second));
    QCOMPARE(imageOf(formatter->getChoiceIcon(item, one, 99)), imageOf(first));
    if (kind == 0) // the active viewport's colour wins
    {
      const OdDbObjectId blue = db.addLayer(OdString(L"Blue"));
      db.openLayer(blue)->setColor(aci(5));
      QCOMPARE(imageOf(first), imageOf(formatter->getIcon(item, propVariantFromObjectId(blue))));
    }

    // A value list: the kind's rule for each key, in order.
    const OdUInt64Array keys{kind == 3 ? OdUInt64(OdDb::kLnWt200) : one.getUInt64(),
                             kind == 3 ? OdUInt64(OdDb::kLnWt013) : two.getUInt64()};
    const QVariantList listed = formatter->getValueListIcons(item, one, OdStringArray{OdString(L"a"), OdString(L"b")}, keys);
    QCOMPARE(listed.size(), 2);
    QCOMPARE(imageOf(listed[0]), imageOf(first));
    QCOMPARE(imageOf(listed[1]), imageOf(second));

    // Another kind, a varying text, an id the drawing does not hold: no icon, no crash; the colour
    // control shows such a value as the default colour, and so does its formatter.
    const QVariant defaultColour = kind == 1 ? formatter->getIcon(item, propVariantFromColor(OdCmColor())) : QVariant();
    QCOMPARE(imageOf(formatter->getIcon(item, textValue(QStringLiteral("red")))), imageOf(defaultColour));
    QCOMPARE(imageOf(formatter->getIcon(item, realValue(1e300))), imageOf(defaultColour));
    if (kind != 1 && kind != 3)
      QVERIFY(!formatter->getIcon(item, propVariantFromObjectId(OdDbObjectId(987654321))).isValid());

    // Without a drawing context the drawing's kinds have nothing to draw from.
    RecordingBag plain;
    plain.addItem(QStringLiteral("Attribute"), one);
    formatter->setPropBag(&plain);
    if (kind == 0)
      QVERIFY(!formatter->getIcon(item, one).isValid());
  }
};

QTEST_MAIN(TestDrawingFormatters)
#include "tst_DrawingFormatters.moc"
