#include "PropUiQFormatter.h"

PropUiQFormatter::PropUiQFormatter(QObject* parent) : QObject(parent) {}

void PropUiQFormatter::setPropBag(PropBag* bag)
{
  m_bag = bag;
}

QString PropUiQFormatter::getText(int, const PropVariant&)
{
  return QString();
}

QString PropUiQFormatter::getChoiceText(int, const PropVariant&, OdUInt64)
{
  return QString();
}

QString PropUiQFormatter::getElementText(int, const PropVariant&, OdUInt64)
{
  return QString();
}

QStringList PropUiQFormatter::getValueListTexts(int, const PropVariant&, const OdStringArray&, const OdUInt64Array&)
{
  return QStringList();
}

QStringList PropUiQFormatter::getNameListTexts(int, const PropVariant&, const OdStringArray&)
{
  return QStringList();
}

QVariant PropUiQFormatter::getIcon(int, const PropVariant&)
{
  return QVariant();
}

QVariant PropUiQFormatter::getChoiceIcon(int, const PropVariant&, OdUInt64)
{
  return QVariant();
}

QVariant PropUiQFormatter::getElementIcon(int, const PropVariant&, OdUInt64)
{
  return QVariant();
}

QVariantList PropUiQFormatter::getValueListIcons(int, const PropVariant&, const OdStringArray&, const OdUInt64Array&)
{
  return QVariantList();
}

QVariantList PropUiQFormatter::getNameListIcons(int, const PropVariant&, const OdStringArray&)
{
  return QVariantList();
}
