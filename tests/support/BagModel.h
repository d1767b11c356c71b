#pragma once

#include "PropUiQDefaultFormatter.h"
#include "PropertyBagModel.h"

/** The item model over a bag, showing the bag's own texts through the default formatter. */
struct BagModel
{
  explicit BagModel(PropBag& bag)
  {
    formatter.setPropBag(&bag);
    model.setFormatter(&formatter);
    model.setPropBag(&bag);
  }
  PropUiQDefaultFormatter formatter{nullptr};
  PropertyBagModel model;
};
