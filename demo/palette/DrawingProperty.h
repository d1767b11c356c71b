#pragma once

#include "DrawingEntity.h"
#include "OdGUID.h"
#include "PropUiOptions.h"
#include "PropVariant.h"
#include <QString>
#include <functional>
#include <vector>

class DrawingDocument;

/** How a property's value is made: one value, or numbers the controls edit one by one. */
enum class PropertyShape
{
  Scalar,
  /** One point: X, Y, Z. */
  Point,
  /** Every vertex of a polyline: X, Y, Z per vertex, a vertex per group. */
  Vertices,
  /** An insert's X and Y scale. */
  Scale,
  /**
   * Texts, an element each: a multi-line text's paragraphs (and one more
   * element, where a new paragraph is typed), an insert's attributes.
   */
  Texts
};

/** How a property's value reads as text, and which values it takes. */
enum class PropertyFormat
{
  Number,
  Angle,
  Text,
  Bool,
  Layer,
  Color,
  Linetype,
  Lineweight,
  /** Whole numbers. */
  Integer,
  /** One of the values choices() lists. */
  Choice
};

/** One entry of a property's list of values. */
struct DrawingChoice
{
  QString name;
  PropVariant value;
};

/** The bit of a kind in DrawingProperty::kinds. */
constexpr unsigned int kindBit(EntityKind kind)
{
  return 1u << unsigned(kind);
}

/** One property that entities may have, and how to read and write it. */
struct DrawingProperty
{
  QString name;
  QString category;
  QString description;
  OdGUID guid;
  PropertyShape shape = PropertyShape::Scalar;
  PropertyFormat format = PropertyFormat::Number;
  unsigned int flags = PropUiOption::kToolTipFilter;
  /** The kinds that have the property (kindBit() of each). */
  unsigned int kinds = 0;
  /** What an entity of those kinds must have besides (enough points, say); null when every one has it. */
  std::function<bool(const DrawingEntity&)> condition;
  /** Choice: the values to choose from, in the order listed. */
  std::function<std::vector<DrawingChoice>()> choices;
  /**
   * Whether writing back the value read restores an entity exactly. When it
   * does not (the write moves other fields too), an undo step keeps whole
   * entities rather than the property's old values.
   */
  bool restoresByValue = true;
  /** Scalar: the entity's value. */
  std::function<PropVariant(const DrawingEntity&)> read;
  /**
   * Scalar: the place of the first of @p count entities whose value differs
   * from @p first's (@p count when none does), compared without making values:
   * a million are compared when everything is selected, a block at a time.
   * Null to compare what read() gives.
   */
  std::function<std::size_t(const DrawingEntity* const* entities, std::size_t count, const DrawingEntity& first)> firstDifferent;
  /** Scalar: false for a value of the wrong kind. Null for a read-only property. */
  std::function<bool(DrawingEntity&, const PropVariant&)> write;
  /** The refusal of a number the property cannot take, empty when it takes it. */
  std::function<QString(double)> refuse;
  /** The refusal of a number one entity cannot take (a minor axis longer than its major one); may be null. */
  std::function<QString(const DrawingEntity&, double)> refuseFor;
  /** Point, Vertices, Scale: the entity's numbers, flat. */
  std::function<int(const DrawingEntity&)> count;
  std::function<double(const DrawingEntity&, int)> element;
  std::function<void(DrawingEntity&, int, double)> setElement;
  /** Texts: whether the last element appends a text rather than showing one. */
  bool appendsText = false;
  /** Texts: the caption of an element (an attribute's tag); null for "Paragraph n". */
  std::function<QString(const DrawingEntity&, int)> elementName;
  /** Texts: the entity's text element, and its write (null for read-only); -1 appends. */
  std::function<QString(const DrawingEntity&, int)> textElement;
  std::function<void(DrawingEntity&, int, const QString&)> setTextElement;
  /** Vertices: the caption of an element, %1 the group's number, %2 the axis; empty for "Vertex %1 %2". */
  QString elementCaption;

  bool applies(const DrawingEntity& e) const { return (kinds & kindBit(e.kind)) && (!condition || condition(e)); }
  bool isEditable() const { return write || setElement || setTextElement; }
};

/** Every property the palette knows, in the order it shows them; texts in the language of the moment. */
std::vector<DrawingProperty> drawingProperties(DrawingDocument* document);

/** A number from a value the controls write: a double, or an integer from a spin box. False for anything else. */
bool toNumber(const PropVariant& value, double& d);
