#include "DrawingEntity.h"

const DrawingEntityDetail& DrawingEntity::details() const
{
  static const DrawingEntityDetail none;
  return detail ? *detail : none;
}

DrawingEntityDetail& DrawingEntity::editDetails()
{
  if (!detail)
    detail = std::make_shared<DrawingEntityDetail>();
  else if (detail.use_count() > 1)
    detail = std::make_shared<DrawingEntityDetail>(*detail);
  return *detail;
}
