#pragma once

#include "PropBag.h"
#include "PropItemType.h"
#include <QIcon>
#include <QStringList>
#include <QVector>
#include <functional>
#include <memory>

class OdDbDatabase;

/**
 * The sample bag of the demo host: the properties of a selected drawing
 * object, one realistic item per kind of control. With "mixed selection" on,
 * every value reads as varying, as when several objects disagree.
 */
class DemoBag : public PropBag
{
public:
  enum Kind
  {
    Caption,
    Text,
    Number,
    Distance,
    Angle,
    Integer,
    Bool,
    Date,
    Choice,
    Commands,
    Vertices,
    Point,
    Scale,
    List,
    Table,
    Flags,
    /** A drawing attribute: colour, layer, linetype, lineweight or arrowhead. */
    Attribute
  };

  /** Receives one line per write the bag accepts or refuses, and per command run. */
  typedef std::function<void(const QString& line, bool accepted)> Log;

  DemoBag();
  ~DemoBag() override;

  void setLog(Log log) { m_log = std::move(log); }
  /** Makes every item read as varying, or as one value again. */
  void setMixed(bool mixed);
  /** True while any item still varies. */
  bool isMixed() const;
  Kind kindOf(int index) const;
  /** The index of the item with this caption, -1 when there is none. */
  int findItem(const OdString& name) override;

  int getItemCount() override;
  PropItemType* getItemType(int index) override;
  bool isEditable(int index, unsigned long element) override;
  bool getName(int index, OdString& name) override;
  bool getCategory(int index, OdString& category) override;
  bool getDescription(int index, OdString& description) override;
  unsigned int getFlags(int index) override;
  OdGUID getControlGuid(int index) override;
  bool validate(int index, unsigned long element, const PropVariant& value, OdString& message) override;
  bool getRange(int index, unsigned long element, PropVariant& min, PropVariant& max) override;
  bool formatValue(int index, unsigned long element, const PropVariant& value, OdString& text) override;
  bool parseValue(int index, unsigned long element, const OdString& text, PropVariant& value) override;
  bool getValue(int index, PropVariant& value) override;
  bool setValue(int index, const PropVariant& value) override;
  unsigned int getActions(int index, unsigned long element, PropActionArray& actions) override;
  bool executeAction(int index, PropAction* action) override;
  bool getValueList(int index, OdStringArray& names, PropKeyArray& keys) override;
  bool getListValue(int index, unsigned long id, PropVariant& value) override;
  bool getIcon(int index, unsigned long value, OdSharedPtr<PropIcon>& icon) override;
  bool getListText(int index, const PropVariant& value, OdString& text) override;
  unsigned int getElements(int index, PropKeyArray& elements, OdStringArray& captions) override;
  bool getElementValue(int index, unsigned long element, PropVariant& value) override;
  bool setElementValue(int index, unsigned long element, const PropVariant& value) override;
  int getElementCount(int index) override;
  int getGroupCount(int index) override;
  /** A drawing context over the demo's drawing: its layers, linetypes and arrowheads. */
  PropBagCtx* getContext() override;

private:
  struct Item;
  class DrawingContext;

  Item* find(int index) const;
  Item& add(Kind kind, const QString& name, const OdGUID& guid, const QString& description);
  QString textOf(const Item& item, const PropVariant& value) const;
  void log(const Item& item, const QString& what, bool accepted);
  void buildItems();
  void buildDrawing();
  /** The layer the object is on, as the layer item holds it; null when the item names none. */
  class OdDbLayerTableRecord* objectLayer() const;

  std::vector<std::unique_ptr<Item> > m_items;
  std::unique_ptr<OdDbDatabase> m_drawing;
  std::unique_ptr<DrawingContext> m_context;
  int m_layerItem = -1;
  Log m_log;
};
