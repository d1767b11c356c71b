#include "PropUiCommonToolTipFilter.h"

#include "OdStringQt.h"
#include "PropBag.h"
#include <QEvent>
#include <QWidget>

PropUiCommonToolTipFilter::PropUiCommonToolTipFilter(QWidget* control) : PropUiQEventFilter(control)
{
  if (control)
    control->installEventFilter(this);
}

namespace
{

// Every refresh asks for the description again and it rarely changes:
// comparing in place saves converting and allocating it each time.
bool sameText(const OdString& text, const QString& shown)
{
  const int length = text.getLength();
  if (length != shown.size())
    return false;
  const OdChar* chars = text.c_str();
  for (int i = 0; i < length; ++i)
    if (OdUInt32(chars[i]) > 0xFFFF || QChar(ushort(chars[i])) != shown.at(i))
      return false;
  return true;
}

} // namespace

void PropUiCommonToolTipFilter::update()
{
  if (!m_bag)
    return;
  OdString description;
  if (m_bag->getDescription(m_itemIndex, description))
    setDescription(description);
}

void PropUiCommonToolTipFilter::setDescription(const OdString& description)
{
  if (!sameText(description, m_toolTip))
    m_toolTip = toQString(description);
}

bool PropUiCommonToolTipFilter::eventFilter(QObject* watched, QEvent* event)
{
  if (m_bag && event->type() == QEvent::ToolTip)
  {
    // Qt shows the widget's own tool tip right after this; make it ours first.
    auto* widget = qobject_cast<QWidget*>(watched);
    if (widget && widget->toolTip() != m_toolTip)
      widget->setToolTip(m_toolTip);
  }
  return false;
}
