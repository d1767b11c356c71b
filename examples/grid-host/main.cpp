// A property grid: the library's item model and standard delegate in a tree
// view, over a bag of five values. It is built against the installed package,
// exactly as the README shows.

#include "OdRxDynamicLinker.h"
#include "OdStringQt.h"
#include "PropAction.h"
#include "PropBag.h"
#include "PropItemType.h"
#include "PropUiGuids.h"
#include "PropUiOptions.h"
#include "PropUiQStandardFormatter.h"
#include "PropUiQtMVCFactories.h"
#include "PropUiQtMVCGroup.h"
#include "PropVariantConversions.h"

#include <QApplication>
#include <QTreeView>
#include <QVector>
#include <cstdio>

// The group is the host's: each model and delegate made for it is handed to
// attachInterface, and every other call is forwarded to all of them, so that
// one call binds or refreshes the whole view.
class GridGroup : public PropUiQtMVCGroup
{
public:
  void setPropBag(PropBag* bag) override
  {
    for (PropUiQtMVCInterface* part : m_parts)
      part->setPropBag(bag);
  }
  void setFormatter(PropUiQFormatter* formatter) override
  {
    for (PropUiQtMVCInterface* part : m_parts)
      part->setFormatter(formatter);
  }
  void itemChanged(int item) override
  {
    for (PropUiQtMVCInterface* part : m_parts)
      part->itemChanged(item);
  }
  void attachInterface(PropUiQtMVCInterface* part) override { m_parts.append(part); }
  void detachInterface(PropUiQtMVCInterface* part) override { m_parts.removeAll(part); }

private:
  QVector<PropUiQtMVCInterface*> m_parts;
};

// An item's type names the editor that formats it in a cell (the standard
// formatter picks the colour formatter for a colour) and tells a combo box
// whether its entries are numbers. Without one, the item's control GUID stands in.
class ItemType : public PropItemType
{
public:
  explicit ItemType(const OdGUID& editor) : m_editor(editor) {}
  int typeId() const override { return 0; }
  OdString typeName() const override { return m_editor.toString(); }
  OdGUID editorGuid() const override { return m_editor; }

private:
  OdGUID m_editor;
};

// An action the bag offers beside a value: its button runs in the cell's editor.
class ClearName : public PropAction
{
public:
  bool execute(const PropVariant&, PropVariant&) override { return true; }
  OdString name() override { return L"Clear"; }
};

class CircleBag : public PropBag
{
public:
  enum Item { Name, Radius, Colour, Style, Centre, Count };

  CircleBag() { m_colour.setColorIndex(1); }

  int getItemCount() override { return Count; }
  PropItemType* getItemType(int index) override { return &m_types[index]; }
  OdGUID getControlGuid(int index) override { return m_types[index].editorGuid(); }

  // Column 0 of the grid.
  bool getName(int index, OdString& name) override
  {
    static const wchar_t* const names[] = {L"Name", L"Radius", L"Colour", L"Style", L"Centre"};
    name = names[index];
    return true;
  }

  // The model reads the flags: a choice (kChoice) shows the name of its entry.
  unsigned int getFlags(int index) override
  {
    if (index == Style)
      return PropItemFlag::kChoice;
    return index == Name ? PropItemFlag::kHasActions : 0;
  }

  // Column 1: getValue, then the formatter's text of the value, which asks formatValue.
  bool getValue(int index, PropVariant& value) override
  {
    switch (index)
    {
    case Name: value.setString(m_name); return true;
    case Radius: value.setDouble(m_radius); return true;
    case Colour: value = propVariantFromColor(m_colour); return true;
    case Style: value.setInt32(m_style); return true;
    case Centre: value.setDoubleArray(m_centre); return true;
    }
    return false;
  }

  // The cell's editor writes here itself; the model is only told (itemChanged).
  bool setValue(int index, const PropVariant& value) override
  {
    switch (index)
    {
    case Name: m_name = value.getString(); return true;
    case Radius: m_radius = value.getDouble(); return true;
    case Colour: return propVariantToColor(value, m_colour);
    case Style: m_style = value.getInt32(); return true;
    }
    return false;
  }

  bool validate(int index, unsigned long, const PropVariant& value, OdString& message) override
  {
    if (index == Radius && value.getDouble() <= 0.0)
    {
      message = L"The radius must be greater than zero.";
      return false;
    }
    return true;
  }

  // A colour needs no text from the bag: its formatter names it.
  bool formatValue(int index, unsigned long element, const PropVariant& value, OdString& text) override
  {
    switch (index)
    {
    case Name: text = value.getString(); return true;
    case Radius: text = toOdString(QString::number(value.getDouble(), 'f', 2)); return true;
    case Style: text = styleName(value.getInt32()); return true;
    case Centre:
      if (value.isArray() && value.getDoubleArray().size() == 3)
      {
        const OdDoubleArray& xyz = value.getDoubleArray();
        text = toOdString(QStringLiteral("%1, %2, %3").arg(xyz[0]).arg(xyz[1]).arg(xyz[2]));
      }
      else
        text = toOdString(QString::number(value.getDouble()));
      return element < 3;
    }
    return false;
  }

  bool parseValue(int index, unsigned long, const OdString& text, PropVariant& value) override
  {
    if (index == Name)
    {
      value.setString(text);
      return true;
    }
    bool ok = false;
    const double number = toQString(text).toDouble(&ok);
    if (ok)
      value.setDouble(number);
    return ok;
  }

  // A choice: its entries' names and keys, and the value behind each key.
  bool getValueList(int index, OdStringArray& names, PropKeyArray& keys) override
  {
    if (index != Style)
      return false;
    for (unsigned long key = 0; key < 3; ++key)
    {
      names.append(styleName(int(key)));
      keys.append(key);
    }
    return true;
  }
  bool getListValue(int index, unsigned long key, PropVariant& value) override
  {
    if (index != Style || key >= 3)
      return false;
    value.setInt32(int(key));
    return true;
  }

  // Elements are the child rows of an item: the centre's three coordinates.
  unsigned int getElements(int index, PropKeyArray& elements, OdStringArray& captions) override
  {
    if (index != Centre)
      return 0;
    for (unsigned long axis = 0; axis < 3; ++axis)
    {
      elements.append(axis);
      captions.append(OdString(axis == 0 ? L"X" : axis == 1 ? L"Y" : L"Z"));
    }
    return 3;
  }
  bool getElementValue(int index, unsigned long element, PropVariant& value) override
  {
    if (index != Centre || element >= 3)
      return false;
    value.setDouble(m_centre[element]);
    return true;
  }
  bool setElementValue(int index, unsigned long element, const PropVariant& value) override
  {
    if (index != Centre || element >= 3)
      return false;
    m_centre[element] = value.getDouble();
    return true;
  }

  unsigned int getActions(int index, unsigned long, PropActionArray& actions) override
  {
    actions.clear();
    if (index == Name)
      actions.append(m_clear);
    return actions.size();
  }
  bool executeAction(int index, PropAction*) override
  {
    if (index != Name)
      return false;
    m_name = OdString();
    return true;
  }

private:
  static OdString styleName(int style)
  {
    static const wchar_t* const names[] = {L"Solid", L"Dashed", L"Hidden"};
    return style >= 0 && style < 3 ? OdString(names[style]) : OdString();
  }

  ItemType m_types[Count] = {ItemType(PropUiGuidText), ItemType(PropUiGuidDistance), ItemType(PropUiGuidColor),
                             ItemType(PropUiGuidTextCombo), ItemType(PropUiGuidCoords3d)};
  OdSharedPtr<PropAction> m_clear{new ClearName};
  OdString m_name = L"Wheel";
  double m_radius = 12.5;
  OdCmColor m_colour;
  int m_style = 0;
  OdDoubleArray m_centre = OdDoubleArray{10.0, 20.0, 0.0};
};

int main(int argc, char* argv[])
{
  QApplication app(argc, argv);

  OdRxModulePtr module = odrxDynamicLinker()->loadModule(OdString(L"PropWidgets"));
  if (!module)
  {
    std::fprintf(stderr, "cannot load PropWidgets: %s\n", qPrintable(toQString(odrxDynamicLinker()->lastError())));
    return 1;
  }

  CircleBag bag;
  GridGroup group;
  QTreeView view;
  // The model and the delegate attach themselves to the group; the view's
  // children, they live as long as it does.
  view.setModel(hostCreatePropUiItemModel(&group, &view));
  view.setItemDelegate(hostCreatePropUiItemDelegate(&group, &view));
  // The formatter makes the value column's texts and icons. The group does
  // not reach it: it takes the bag from the host, as a control does.
  PropUiQStandardFormatter* formatter = propUiCreateStandardFormatter(&view);
  formatter->setPropBag(&bag);
  group.setFormatter(formatter);
  group.setPropBag(&bag); // after the bag's items change: setPropBag again; after a value changes: itemChanged
  view.setEditTriggers(QAbstractItemView::AllEditTriggers);
  view.setHeaderHidden(true); // the model gives no header texts
  view.resize(360, 220);
  view.expandAll();
  view.show();

  // An unattended run (CI) checks that every value cell shows a text, then leaves.
  if (app.arguments().contains(QStringLiteral("--check")))
  {
    QAbstractItemModel* model = view.model();
    for (int row = 0; row < model->rowCount(); ++row)
      if (model->index(row, 1).data().toString().isEmpty())
        return 2;
    return model->rowCount() == bag.getItemCount() ? 0 : 3;
  }
  return app.exec();
}
