#pragma once

#include "PropAction.h"
#include "PropBag.h"
#include "PropItemType.h"
#include "PropUiQIcon.h"
#include "hostPropEditorReactor.h"
#include <QIcon>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>
#include <functional>

/** An item type a test can describe in one line. */
class TestItemType : public PropItemType
{
public:
  TestItemType(int id = 0, const OdGUID& guid = OdGUID()) : m_id(id), m_guid(guid) {}
  int typeId() const override { return m_id; }
  OdString typeName() const override { return OdString("test"); }
  OdGUID editorGuid() const override { return m_guid; }

private:
  int m_id;
  OdGUID m_guid;
};

/** A reactor that writes down every focus report. */
class RecordingReactor : public hostPropEditorReactor
{
public:
  struct Focus
  {
    int typeId;
    unsigned long element;
    bool focusIn;
  };
  void focusChanged(int typeId, unsigned long element, bool focusIn) override
  {
    focus.append({typeId, element, focusIn});
  }
  QVector<Focus> focus;
};

/** An action that counts how often the bag ran it. */
class TestAction : public PropAction
{
public:
  explicit TestAction(const QString& caption = QString(), bool enabled = true) : m_caption(caption), m_enabled(enabled) {}
  bool execute(const PropVariant&, PropVariant&) override { ++runs; return true; }
  OdString name() override { return OdString(m_caption.toStdWString()); }
  bool enabled() override { return m_enabled; }
  bool checkable() override { return isCheckable; }
  bool checked() override { return isChecked; }
  OdSharedPtr<PropIcon> icon() override
  {
    return iconToGive.isNull() ? OdSharedPtr<PropIcon>() : OdSharedPtr<PropIcon>(new PropUiQIcon(iconToGive));
  }
  int runs = 0;
  bool isCheckable = false;
  bool isChecked = false;
  QIcon iconToGive;

private:
  QString m_caption;
  bool m_enabled;
};

/**
 * A bag whose answers a test scripts item by item, and which records every
 * call a control makes ("getValue(0)", "setElementValue(2,5)", ...).
 *
 * Values are formatted by type (integers in decimal, doubles with '.',
 * strings as they are, booleans "Yes"/"No") and parsed back to the type the
 * item holds, unless the test installs its own format or parse function.
 */
class RecordingBag : public PropBag
{
public:
  struct Item
  {
    QString name;
    QString description;
    bool hasDescription = true;
    unsigned int flags = 0;
    OdGUID guid;
    PropVariant value;
    bool readable = true;
    bool acceptWrite = true;
    bool acceptValidate = true;
    QString validateMessage;
    bool editable = true;
    bool hasRange = false;
    PropVariant min, max;
    QStringList listNames;
    QVector<unsigned long> listKeys;
    QMap<unsigned long, PropVariant> listValues;
    QMap<unsigned long, QIcon> icons;
    bool hasListText = false;
    QVector<unsigned long> elements;
    QStringList elementCaptions;
    QMap<unsigned long, PropVariant> elementValues;
    int elementCount = -1;
    int groupCount = 0;
    PropItemType* type = nullptr;
    hostPropEditorReactor* reactor = nullptr;
    QVector<OdSharedPtr<PropAction> > actions;
    bool executeResult = true;
  };

  ~RecordingBag() override;

  /** Adds an item and answers its index. */
  int addItem(const QString& name, const PropVariant& value = PropVariant());
  Item& item(int index) { return m_items[index]; }

  /** Calls whose name starts with the prefix, e.g. count("setValue"). */
  int count(const QString& prefix) const;
  bool called(const QString& prefix) const { return count(prefix) > 0; }
  void clearCalls() { calls.clear(); }

  QStringList calls;
  QVector<PropVariant> written;
  QVector<OdString> parsedTexts;
  QVector<PropAction*> executed;
  std::function<bool(int, const PropVariant&, OdString&)> format;
  std::function<bool(int, const OdString&, PropVariant&)> parse;
  /** Runs inside validate, before it answers: a bag that moves the focus or rebuilds the panel. */
  std::function<void()> duringValidate;
  PropBagCtx* context = nullptr;

  static QString textOf(const PropVariant& value);

  int getItemCount() override;
  PropItemType* getItemType(int index) override;
  bool isEditable(int index, unsigned long element) override;
  bool getName(int index, OdString& name) override;
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
  PropBagCtx* getContext() override;
  hostPropEditorReactor* getReactor(int index) override;

private:
  bool known(int index) const { return index >= 0 && index < m_items.size(); }
  void record(const QString& what);
  /** Records the call and answers the item, or null for an index the bag does not know. */
  Item* call(const char* name, int index);
  Item* call(const char* name, int index, unsigned long element);

  QVector<Item> m_items;
  /** Every call since construction, whatever clearCalls dropped; see the destructor. */
  QStringList m_trace;
};
