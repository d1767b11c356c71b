#pragma once

#include "EntityLookup.h"
#include "PropBag.h"
#include <QCoreApplication>
#include <QMetaObject>
#include <QVector>
#include <functional>
#include <memory>
#include <vector>

class DrawingDocument;
class OdDbObjectId;
struct DrawingEntity;
class QUndoStack;
struct DrawingProperty;
struct DrawingChoice;
enum class EntityKind;

/**
 * The properties of the selected entities of a drawing, as a host's palette
 * shows them: first which kinds of object the palette shows (all, or the
 * selected ones of one kind) and what they are, then only the properties
 * every shown entity has, each value merged across them (varying where the
 * entities disagree, per coordinate for points). An accepted write changes
 * every shown entity in one undo step.
 *
 * Which properties the entities share is settled once per selection and
 * after each change of the drawing (reload()). A value is merged when first
 * read after that and kept until the drawing changes: a palette over a
 * million entities reads each value many times, the drawing once.
 */
class DrawingPropertyBag : public PropBag
{
  Q_DECLARE_TR_FUNCTIONS(DrawingPropertyBag)

public:
  /** The undo stack may be null: edits are then written without an undo step. */
  DrawingPropertyBag(DrawingDocument* document, QUndoStack* undoStack);
  ~DrawingPropertyBag() override;

  /** Takes a new selection and merges its values; handles the document does not know are dropped. Shows every kind. */
  void setSelection(const QVector<quint64>& handles);
  const QVector<quint64>& selection() const { return m_selection; }
  /** Shows and edits only the selected entities of @p kind; false when the selection has none. */
  bool showKind(EntityKind kind);
  /** Shows and edits every selected entity, as after a new selection. */
  void showAllKinds();
  /** The kind shown, or false when every kind is. */
  bool shownKind(EntityKind& kind) const;
  /** How many selected entities the palette shows and edits. */
  int shownCount() const { return m_kind < 0 ? m_selection.size() : m_kindCounts[std::size_t(m_kind)]; }
  /**
   * Merges the values again. True when the items stayed the same (a palette
   * only re-reads them), false when a palette must be built anew. The bag
   * calls it itself whenever the document reports a change.
   */
  bool reload();
  /** Called after each reload that a change of the document caused, with reload()'s answer. */
  void setChangeListener(std::function<void(bool sameItems)> listener) { m_listener = std::move(listener); }

  int getItemCount() override;
  int findItem(const OdString& name) override;
  PropItemType* getItemType(int index) override;
  bool isEditable(int index, unsigned long element) override;
  bool getName(int index, OdString& name) override;
  bool getCategory(int index, OdString& category) override;
  bool getDescription(int index, OdString& description) override;
  unsigned int getFlags(int index) override;
  OdGUID getControlGuid(int index) override;
  bool validate(int index, unsigned long element, const PropVariant& value, OdString& message) override;
  bool formatValue(int index, unsigned long element, const PropVariant& value, OdString& text) override;
  bool parseValue(int index, unsigned long element, const OdString& text, PropVariant& value) override;
  bool getValue(int index, PropVariant& value) override;
  bool setValue(int index, const PropVariant& value) override;
  unsigned int getElements(int index, PropKeyArray& elements, OdStringArray& captions) override;
  bool getElementValue(int index, unsigned long element, PropVariant& value) override;
  bool setElementValue(int index, unsigned long element, const PropVariant& value) override;
  int getGroupCount(int index) override;
  bool getValueList(int index, OdStringArray& names, PropKeyArray& keys) override;
  bool getListValue(int index, unsigned long id, PropVariant& value) override;
  bool getListText(int index, const PropVariant& value, OdString& text) override;
  /** A drawing context over the document's database; ByLayer resolves through the selection's common layer. */
  PropBagCtx* getContext() override;

private:
  struct Item;
  class Context;

  Item* find(int index) const;
  /** Takes the handles the document has, keeping the kind shown when the selection still has it. */
  void select(const QVector<quint64>& handles, bool keepKind);
  void merge();
  void addItem(std::unique_ptr<Item> item);
  /** The selected entities the palette shows: all, or those of the kind shown. */
  const EntityPointers& shown() const;
  /** The filter's entries: All, then each kind the selection has, with their counts. */
  std::vector<DrawingChoice> kindChoices() const;
  std::vector<DrawingChoice> choicesOf(const Item& item) const;
  PropVariant typeValue() const;
  /** False when a selected entity is gone: nothing is read or written then. */
  bool resolveEntities() const;
  PropVariant mergedValue(const Item& item) const;
  void mergeComparable() const;
  PropVariant mergedElement(const Item& item, int element) const;
  /** The layer every selected entity is on; null when they differ. */
  OdDbObjectId commonLayer() const;
  QString checkValue(const Item& item, unsigned long element, const PropVariant& value) const;
  /** Changes the shown kind to the filter's value; false for a value that is no entry. */
  bool writeFilter(const PropVariant& value);
  /** Writes one change to every selected entity as one undo step. */
  bool write(const Item& item, long element, const PropVariant& value);

  DrawingDocument* m_document;
  QUndoStack* m_undoStack;
  QVector<quint64> m_selection;
  /** Every property the palette knows; built per bag, so its texts follow the language of the moment. */
  std::vector<DrawingProperty> m_properties;
  std::vector<std::unique_ptr<Item> > m_items;
  /** -1 for every kind, else the EntityKind shown. */
  int m_kind = -1;
  /** How many selected entities each kind has, by EntityKind. */
  std::vector<int> m_kindCounts;
  /** The selected entities, in the order of the selection, while it lasts; and those of the kind shown. */
  mutable EntityPointers m_entities;
  mutable EntityPointers m_shownEntities;
  mutable const DrawingEntity* m_entitiesBase = nullptr;
  mutable std::size_t m_entitiesSize = 0;
  std::unique_ptr<Context> m_context;
  std::function<void(bool)> m_listener;
  QMetaObject::Connection m_changed;
  QMetaObject::Connection m_reset;
};
