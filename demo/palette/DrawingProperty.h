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
  Scale
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
  Lineweight
};

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
  std::function<bool(const DrawingEntity&)> applies;
  /** Scalar: the entity's value. */
  std::function<PropVariant(const DrawingEntity&)> read;
  /** Scalar: false for a value of the wrong kind. Null for a read-only property. */
  std::function<bool(DrawingEntity&, const PropVariant&)> write;
  /** The refusal of a number the property cannot take, empty when it takes it. */
  std::function<QString(double)> refuse;
  /** Point, Vertices, Scale: the entity's numbers, flat. */
  std::function<int(const DrawingEntity&)> count;
  std::function<double(const DrawingEntity&, int)> element;
  std::function<void(DrawingEntity&, int, double)> setElement;
};

/** Every property the palette knows, in the order it shows them; texts in the language of the moment. */
std::vector<DrawingProperty> drawingProperties(DrawingDocument* document);

/** A number from a value the controls write: a double, or an integer from a spin box. False for anything else. */
bool toNumber(const PropVariant& value, double& d);
