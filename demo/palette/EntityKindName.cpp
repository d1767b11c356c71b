#include "EntityKindName.h"

#include <QCoreApplication>

QString entityKindName(EntityKind kind)
{
  switch (kind)
  {
  case EntityKind::Line:
    return QCoreApplication::translate("EntityKindName", "Line");
  case EntityKind::Circle:
    return QCoreApplication::translate("EntityKindName", "Circle");
  case EntityKind::Arc:
    return QCoreApplication::translate("EntityKindName", "Arc");
  case EntityKind::Polyline:
    return QCoreApplication::translate("EntityKindName", "Polyline");
  case EntityKind::Text:
    return QCoreApplication::translate("EntityKindName", "Text");
  case EntityKind::MText:
    return QCoreApplication::translate("EntityKindName", "Multiline Text");
  case EntityKind::Insert:
    return QCoreApplication::translate("EntityKindName", "Block Reference");
  case EntityKind::Dimension:
    return QCoreApplication::translate("EntityKindName", "Dimension");
  case EntityKind::Ellipse:
    return QCoreApplication::translate("EntityKindName", "Ellipse");
  case EntityKind::Spline:
    return QCoreApplication::translate("EntityKindName", "Spline");
  case EntityKind::Hatch:
    return QCoreApplication::translate("EntityKindName", "Hatch");
  case EntityKind::Point:
    return QCoreApplication::translate("EntityKindName", "Point");
  case EntityKind::Solid:
    return QCoreApplication::translate("EntityKindName", "Solid");
  case EntityKind::Trace:
    return QCoreApplication::translate("EntityKindName", "Trace");
  case EntityKind::Image:
    return QCoreApplication::translate("EntityKindName", "Image");
  case EntityKind::Other:
    break;
  }
  return QCoreApplication::translate("EntityKindName", "Other");
}

QString entityTypeName(const DrawingEntity& entity)
{
  if (entity.kind == EntityKind::Other && !entity.typeName.isEmpty())
    return entity.typeName;
  return entityKindName(entity.kind);
}
