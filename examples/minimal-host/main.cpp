// The smallest host: a bag of three values, a panel of captioned controls.
// It is built against the installed package, exactly as the README shows.

#include "OdRxDynamicLinker.h"
#include "OdStringQt.h"
#include "PropBag.h"
#include "PropUiGuids.h"
#include "PropUiQLabel.h"
#include "PropUiQWidget.h"
#include "PropUiRegistry.h"

#include <QApplication>
#include <QFormLayout>
#include <QWidget>
#include <cstdio>

// A bag is the host's view of what is being edited. A control asks it for
// the value, for the text that shows it (formatValue) and for the value a
// typed text stands for (parseValue): without those two, a field stays empty.
class CircleBag : public PropBag
{
public:
  int getItemCount() override { return 3; }

  bool getName(int index, OdString& name) override
  {
    static const wchar_t* const names[] = {L"Name", L"Radius", L"Filled"};
    name = names[index];
    return true;
  }

  OdGUID getControlGuid(int index) override
  {
    const OdGUID guids[] = {PropUiGuidText, PropUiGuidDistance, PropUiGuidBool};
    return guids[index];
  }

  bool getValue(int index, PropVariant& value) override
  {
    switch (index)
    {
    case 0: value.setString(m_name); return true;
    case 1: value.setDouble(m_radius); return true;
    case 2: value.setBool(m_filled); return true;
    }
    return false;
  }

  bool setValue(int index, const PropVariant& value) override
  {
    switch (index)
    {
    case 0: m_name = value.getString(); return true;
    case 1: m_radius = value.getDouble(); return true;
    case 2: m_filled = value.getBool(); return true;
    }
    return false;
  }

  bool validate(int index, unsigned long, const PropVariant& value, OdString& message) override
  {
    if (index == 1 && value.getDouble() <= 0.0)
    {
      message = L"The radius must be greater than zero.";
      return false;
    }
    return true;
  }

  bool formatValue(int index, unsigned long, const PropVariant& value, OdString& text) override
  {
    if (index == 1)
      text = toOdString(QString::number(value.getDouble(), 'f', 2));
    else
      text = value.getString();
    return true;
  }

  bool parseValue(int index, unsigned long, const OdString& text, PropVariant& value) override
  {
    if (index != 1)
    {
      value.setString(text);
      return true;
    }
    bool ok = false;
    const double radius = toQString(text).toDouble(&ok);
    if (ok)
      value.setDouble(radius);
    return ok;
  }

private:
  OdString m_name = L"Wheel";
  double m_radius = 12.5;
  bool m_filled = true;
};

int main(int argc, char* argv[])
{
  QApplication app(argc, argv);

  // The library is a run-time module: loading it registers its controls.
  OdRxModulePtr module = odrxDynamicLinker()->loadModule(OdString(L"PropWidgets"));
  if (!module)
  {
    std::fprintf(stderr, "cannot load PropWidgets: %s\n", qPrintable(toQString(odrxDynamicLinker()->lastError())));
    return 1;
  }

  CircleBag bag;
  QWidget panel;
  auto* form = new QFormLayout(&panel);
  for (int i = 0; i < bag.getItemCount(); ++i)
  {
    // The option word selects variants of a kind (PropUiOptions.h); a bag
    // may keep them in its item flags, so the host passes getFlags(i).
    PropUiQWidget* control = propUiCreateWidget(bag.getControlGuid(i), int(bag.getFlags(i)));
    if (!control)
      continue; // nothing registered for this GUID: the item gets no row
    control->setParent(&panel);
    control->setPropBagItem(&bag, i);
    control->setupUi();
    control->updateUi();
    control->updateData();

    // Captions are the host's: the label reads the item's name from the bag.
    auto* caption = new PropUiQLabel(&panel);
    caption->setPropBagItem(&bag, i);
    caption->setupUi();
    form->addRow(caption, control);
  }
  panel.show();

  // An unattended run (CI) checks that everything was built, then leaves.
  if (app.arguments().contains(QStringLiteral("--check")))
    return form->rowCount() == bag.getItemCount() ? 0 : 2;
  return app.exec();
}
