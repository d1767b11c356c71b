#pragma once

#include "PropUiQDefaultFormatter.h"
#include "PropertyBagModel.h"
#include <QAbstractItemModelTester>
#include <QScopedPointer>

/**
 * The item model over a bag, showing the bag's own texts through the default
 * formatter, and checked by Qt's model tester for as long as it lives.
 */
struct BagModel
{
  explicit BagModel(PropBag& bag)
  {
    formatter.setPropBag(&bag);
    model.setFormatter(&formatter);
    model.setPropBag(&bag);
    tester.reset(new QAbstractItemModelTester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest));
  }
  PropUiQDefaultFormatter formatter{nullptr};
  PropertyBagModel model;
  QScopedPointer<QAbstractItemModelTester> tester; // last, so it is gone before the model
};
