#pragma once

#include "OdStringQt.h"
#include "PropAction.h"
#include "PropBag.h"
#include "PropUiOptions.h"
#include "PropBagCtx.h"
#include "PropItemType.h"
#include "PropUiQIcon.h"
#include "OdDbDatabase.h"
#include "OdDbLayerTableRecord.h"
#include "PropVariantConversions.h"
#include "hostDbPropBagCtx.h"
#include "hostPropEditorReactor.h"
#include <QPixmap>
#include <QStringList>
#include <functional>
#include <limits>
#include <random>
#include <vector>

/** The seeded source of every random choice, so that one seed replays one run. */
class Dice
{
public:
  explicit Dice(unsigned int seed) : m_engine(seed) {}

  bool chance(double p) { return std::bernoulli_distribution(p)(m_engine); }
  int below(int n) { return n <= 1 ? 0 : std::uniform_int_distribution<int>(0, n - 1)(m_engine); }
  unsigned int word() { return unsigned(m_engine()); }
  template <class T>
  const T& pick(const std::vector<T>& from) { return from[size_t(below(int(from.size())))]; }

  /** Mostly small numbers, often the limits of the kind, sometimes anything. */
  long long integer()
  {
    static const std::vector<long long> edges = {0, 1, -1, 2, 8, 9, 100, std::numeric_limits<int>::min(),
                                                 std::numeric_limits<int>::max(), std::numeric_limits<long long>::min(),
                                                 std::numeric_limits<long long>::max(), 0x80000000LL, 0xFFFFFFFFLL};
    if (chance(0.5))
      return below(21) - 10;
    if (chance(0.6))
      return pick(edges);
    return (static_cast<long long>(word()) << 32) | word();
  }

  double real()
  {
    static const std::vector<double> edges = {0.0, -0.0, 0.5, -1e-300, 1e300, std::numeric_limits<double>::max(),
                                              std::numeric_limits<double>::denorm_min(),
                                              std::numeric_limits<double>::quiet_NaN(),
                                              std::numeric_limits<double>::infinity(),
                                              -std::numeric_limits<double>::infinity()};
    return chance(0.5) ? pick(edges) : std::uniform_real_distribution<double>(-1e6, 1e6)(m_engine);
  }

  /** Empty, short, unicode, numeric-looking or 5,000 characters. */
  QString text()
  {
    static const std::vector<QString> samples = {QString(), QStringLiteral("0"), QStringLiteral("-1"),
                                                 QStringLiteral("1e309"), QStringLiteral("nan"),
                                                 QStringLiteral("*VARIES*"), QStringLiteral("12,5"),
                                                 QStringLiteral("\u00e4\u4e2d\U0001F600"), QStringLiteral(" \t\n")};
    switch (below(4))
    {
    case 0: return pick(samples);
    case 1: return QString(5000, QChar(u'a' + below(26)));
    default:
    {
      QString s;
      for (int n = below(12); n > 0; --n)
        s += QChar(chance(0.8) ? ushort(0x20 + below(0x5f)) : ushort(0xa0 + below(0x2000)));
      return s;
    }
    }
  }

private:
  std::mt19937 m_engine;
};

/** An action whose every answer is random; a freed one is what AddressSanitizer looks for. */
class RandomAction : public PropAction
{
public:
  explicit RandomAction(Dice& dice) : m_dice(dice) {}
  bool execute(const PropVariant&, PropVariant&) override { return m_dice.chance(0.5); }
  OdString name() override { return toOdString(m_dice.text()); }
  OdSharedPtr<PropIcon> icon() override
  {
    if (m_dice.chance(0.5))
      return OdSharedPtr<PropIcon>();
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::red);
    return OdSharedPtr<PropIcon>(new PropUiQIcon(QIcon(pixmap)));
  }
  bool checkable() override { return m_dice.chance(0.5); }
  bool checked() override { return m_dice.chance(0.5); }
  bool enabled() override { return m_dice.chance(0.8); }
  bool modeless() override { return m_dice.chance(0.5); }

private:
  Dice& m_dice;
};

/**
 * A bag whose every answer is random: results, kinds of values, state bits,
 * lists, counts, types, contexts and reactors. It checks what a control must
 * never do whatever the answers: write after a refused validate without a
 * new validate, or call the bag once the host has started to destroy it.
 */
class RandomBag : public PropBag
{
public:
  explicit RandomBag(unsigned int seed) : m_dice(seed) {}

  /** Faults seen so far, one line each. */
  QStringList faults;
  /** Set by the host when the control's destruction starts. */
  bool retired = false;
  /** What the host may do inside validate or a write, such as moving the focus as a dialog does. */
  std::function<void()> sideEffect;

  typedef unsigned long Key;

  int getItemCount() override { return int(answer("getItemCount", m_dice.integer())); }
  PropItemType* getItemType(int index) override
  {
    return call("getItemType", index) && m_dice.chance(0.7) ? &m_type : nullptr;
  }
  bool isEditable(int index, unsigned long) override { return call("isEditable", index) && m_dice.chance(0.8); }
  bool getName(int, OdString& name) override { return someText("getName", name); }
  bool getDescription(int, OdString& description) override { return someText("getDescription", description); }
  unsigned int getFlags(int index) override { return call("getFlags", index) ? flags() : 0; }
  OdGUID getControlGuid(int) override
  {
    call("getControlGuid");
    return OdGUID();
  }

  bool validate(int, unsigned long, const PropVariant&, OdString& message) override
  {
    m_refused = !call("validate") || m_dice.chance(0.35);
    message = m_dice.chance(0.7) ? toOdString(m_dice.text()) : OdString();
    const bool refused = m_refused;
    maybeSideEffect("validate");
    return !refused;
  }
  bool getRange(int, unsigned long, PropVariant& min, PropVariant& max) override
  {
    if (!call("getRange"))
      return false;
    min = value();
    max = value();
    return m_dice.chance(0.7);
  }
  bool formatValue(int index, unsigned long element, const PropVariant&, OdString& text) override
  {
    return someText("formatValue", text, index, element);
  }
  bool parseValue(int, unsigned long, const OdString&, PropVariant& parsed) override { return someValue("parseValue", parsed); }
  bool getValue(int index, PropVariant& read) override { return someValue("getValue", read, index); }
  bool setValue(int, const PropVariant&) override { return write("setValue"); }
  unsigned int getActions(int, unsigned long, PropActionArray& actions) override
  {
    actions.clear();
    if (!call("getActions"))
      return 0;
    // The caller's array is the actions' only owner, as with a host that builds them per call.
    for (int n = m_dice.below(6); n > 0; --n)
      actions.append(OdSharedPtr<PropAction>(new RandomAction(m_dice)));
    return m_dice.chance(0.8) ? actions.size() : unsigned(m_dice.below(8));
  }
  bool executeAction(int, PropAction* action) override
  {
    if (!call("executeAction"))
      return false;
    if (action)
      action->name(); // a freed action fails here under AddressSanitizer
    return m_dice.chance(0.5);
  }
  bool getValueList(int index, OdStringArray& names, PropKeyArray& keys) override
  {
    names.clear();
    keys.clear();
    if (!call("getValueList", index))
      return false;
    pairedLists(12, [&](int) { names.append(toOdString(m_dice.text())); }, [&](int i) { keys.append(someKey(i)); });
    return m_dice.chance(0.8);
  }
  bool getListValue(int index, unsigned long key, PropVariant& listed) override
  {
    return someValue("getListValue", listed, index, key);
  }
  bool getIcon(int, unsigned long, OdSharedPtr<PropIcon>& icon) override
  {
    if (!call("getIcon") || m_dice.chance(0.5))
      return false;
    icon = OdSharedPtr<PropIcon>(m_dice.chance(0.8) ? new PropUiQIcon(QIcon()) : nullptr);
    return true;
  }
  bool getListText(int index, const PropVariant&, OdString& text) override { return someText("getListText", text, index); }
  unsigned int getElements(int, PropKeyArray& elements, OdStringArray& captions) override
  {
    elements.clear();
    captions.clear();
    if (!call("getElements"))
      return 0;
    pairedLists(10, [&](int i) { elements.append(someKey(i)); }, [&](int) { captions.append(toOdString(m_dice.text())); });
    return m_dice.chance(0.7) ? elements.size() : unsigned(m_dice.integer());
  }
  bool getElementValue(int index, unsigned long element, PropVariant& read) override
  {
    return someValue("getElementValue", read, index, element);
  }
  bool setElementValue(int, unsigned long, const PropVariant&) override { return write("setElementValue"); }
  int getElementCount(int) override { return int(answer("getElementCount", m_dice.integer())); }
  int getGroupCount(int) override { return int(answer("getGroupCount", m_dice.integer())); }
  PropBagCtx* getContext() override
  {
    if (!call("getContext") || m_dice.chance(0.4))
      return nullptr;
    if (m_dice.chance(0.3))
      return &m_context;
    return m_dice.chance(0.8) ? &m_drawing : &m_noDrawing;
  }
  hostPropEditorReactor* getReactor(int) override
  {
    return call("getReactor") && m_dice.chance(0.5) ? &m_reactor : nullptr;
  }

  /** A value of any kind, with any state bits, or a type word that matches no value at all. */
  PropVariant value()
  {
    PropVariant v;
    switch (m_dice.below(12))
    {
    case 0: break;
    case 10: v = drawingValue(); break;
    case 11: v = propVariantFromObjectId(anyId()); break;
    case 1: v.setBool(m_dice.chance(0.5)); break;
    case 2: v.setInt32(OdInt32(m_dice.integer())); break;
    case 3: v.setInt16(OdInt16(m_dice.integer())); break;
    case 4: v.setInt64(m_dice.integer()); break;
    case 5: v.setUInt64(OdUInt64(m_dice.integer())); break;
    case 6:
    case 7: v.setDouble(m_dice.real()); break;
    case 8: v.setString(toOdString(m_dice.text())); break;
    default:
    {
      OdDoubleArray reals;
      for (int n = m_dice.below(12); n > 0; --n)
        reals.append(m_dice.real());
      v.setDoubleArray(reals);
    }
    }
    if (m_dice.chance(0.15))
      v.setType(v.type() | PropVariant::kVaries);
    if (m_dice.chance(0.1))
      v.setType(v.type() | PropVariant::kNoData);
    if (m_dice.chance(0.05))
      v.setType(m_dice.word());
    return v;
  }

  /** One drawing for every bag: a few layers and linetypes, and its ids among those the bag hands out. */
  static OdDbDatabase& drawing()
  {
    static OdDbDatabase db;
    static const bool filled = [] {
      db.openLayer(db.addLayer(OdString(L"Frozen")))->setIsFrozen(true);
      db.openLayer(db.addLayer(OdString(L"Locked")))->setIsLocked(true);
      db.addLinetype(OdString(L"Dashed"), OdString(L"__ __"), OdDoubleArray{0.5, -0.25});
      db.addLinetype(OdString(L"Dots"), OdString(L". ."), OdDoubleArray{0.0, -0.1});
      return true;
    }();
    Q_UNUSED(filled);
    return db;
  }

  /** An id of the drawing, of another database, or the null id. */
  OdDbObjectId anyId()
  {
    OdDbDatabase& db = drawing();
    OdDbObjectIdArray ids = db.getLayerIds();
    for (const OdDbObjectId& id : db.getLinetypeIds())
      ids.append(id);
    for (const OdDbObjectId& id : db.getBlockIds())
      ids.append(id);
    if (m_dice.chance(0.8))
      return ids[unsigned(m_dice.below(int(ids.size())))];
    return m_dice.chance(0.5) ? OdDbObjectId() : OdDbObjectId(OdUInt64(m_dice.integer()));
  }

  /** A colour, a lineweight or an id as the host's conversions make them, sound or not. */
  PropVariant drawingValue()
  {
    switch (m_dice.below(3))
    {
    case 0:
    {
      PropVariant v = propVariantFromColor(OdCmColor());
      v.setUInt64(m_dice.chance(0.5) ? OdUInt64(0xC3000000u | unsigned(m_dice.below(300))) : OdUInt64(m_dice.integer()));
      v.setType(PropVariant::kColor);
      return v;
    }
    case 1: return propVariantFromLineweight(OdDb::LineWeight(m_dice.chance(0.7) ? m_dice.below(215) - 3 : int(m_dice.integer())));
    default: return propVariantFromObjectId(anyId());
    }
  }


protected:
  /** Told of every question before it is answered, with the item and element or key it is about. */
  virtual void asking(const char*, int, unsigned long) {}
  /** Starts the answers anew from a seed: a bag whose answers follow from what is asked. */
  void reseed(unsigned int seed) { m_dice = Dice(seed); }

private:
  /** A drawing context whose translations and disabled values are random too. */
  class DrawingContext : public hostDbPropBagCtx
  {
  public:
    DrawingContext(RandomBag& bag, OdDbDatabase* database) : hostDbPropBagCtx(database), m_bag(bag) {}
    bool isDisabledValue(int, const PropVariant&) override
    {
      return m_bag.call("isDisabledValue") && m_bag.m_dice.chance(0.3);
    }
    bool translate(int, const PropVariant& in, PropVariant& out, bool* flag) override
    {
      if (!m_bag.call("translate"))
        return false;
      out = m_bag.m_dice.chance(0.5) ? in : m_bag.value();
      if (flag)
        *flag = m_bag.m_dice.chance(0.5);
      return m_bag.m_dice.chance(0.8);
    }

  private:
    RandomBag& m_bag;
  };

  /** Reports focus like the host's reactor; a report from a control being destroyed is a fault. */
  class Reactor : public hostPropEditorReactor
  {
  public:
    explicit Reactor(RandomBag& bag) : m_bag(bag) {}
    void focusChanged(int, unsigned long, bool) override { m_bag.call("the reactor's focusChanged"); }

  private:
    RandomBag& m_bag;
  };

  class Type : public PropItemType
  {
  public:
    explicit Type(Dice& dice) : m_dice(dice) {}
    int typeId() const override { return int(m_dice.integer()); }
    OdString typeName() const override { return toOdString(m_dice.text()); }
    OdGUID editorGuid() const override { return OdGUID(); }

  private:
    Dice& m_dice;
  };

  /** Notes a call and answers whether the bag says anything at all. */
  bool call(const char* what, int index = 0, unsigned long element = 0)
  {
    asking(what, index, element);
    if (retired)
      faults << QStringLiteral("%1 called while the control is being destroyed").arg(QLatin1String(what));
    return m_dice.chance(0.9);
  }
  long long answer(const char* what, long long random) { return call(what) ? random : 0; }
  bool someText(const char* what, OdString& text, int index = 0, unsigned long element = 0)
  {
    if (!call(what, index, element))
      return false;
    text = toOdString(m_dice.text());
    return m_dice.chance(0.8);
  }
  bool someValue(const char* what, PropVariant& v, int index = 0, unsigned long element = 0)
  {
    if (!call(what, index, element))
      return false;
    v = value();
    return m_dice.chance(0.85);
  }
  bool write(const char* what)
  {
    if (!call(what))
      return false;
    if (m_refused)
      faults << QStringLiteral("%1 after a refused validate").arg(QLatin1String(what));
    maybeSideEffect(what);
    return m_dice.chance(0.8);
  }
  /** A commit that the side effect starts again inside the first one is the same edit written twice. */
  void maybeSideEffect(const char* what)
  {
    if (m_inSideEffect)
      faults << QStringLiteral("%1 nested in another commit of the same control").arg(QLatin1String(what));
    if (!sideEffect || m_inSideEffect || !m_dice.chance(0.2))
      return;
    m_inSideEffect = true;
    sideEffect();
    m_inSideEffect = false;
  }
  /** Two lists meant to pair up, which a careless host gives different lengths. */
  template <class Fill, class FillOther>
  void pairedLists(int most, Fill fill, FillOther fillOther)
  {
    const int count = m_dice.below(most);
    const int otherCount = m_dice.chance(0.6) ? count : m_dice.below(most);
    for (int i = 0; i < count; ++i)
      fill(i);
    for (int i = 0; i < otherCount; ++i)
      fillOther(i);
  }
  /** Mostly the position, as keys and elements usually are. */
  Key someKey(int i) { return m_dice.chance(0.8) ? Key(i) : Key(m_dice.integer()); }
  unsigned int flags()
  {
    const unsigned int known = PropItemFlag::kHasActions | PropItemFlag::kEditableList | PropItemFlag::kCaptionOnCheckBox;
    return m_dice.chance(0.8) ? (m_dice.word() & known) : m_dice.word();
  }

  Dice m_dice;
  bool m_refused = false;
  bool m_inSideEffect = false;
  Type m_type{m_dice};
  PropBagCtxBase m_context;
  DrawingContext m_drawing{*this, &drawing()};
  DrawingContext m_noDrawing{*this, nullptr};
  Reactor m_reactor{*this};
};
