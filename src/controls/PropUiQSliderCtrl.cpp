#include "PropUiQSliderCtrl.h"

#include "HostVisualManager.h"
#include "PropBag.h"
#include "PropUiThemeColors_p.h"
#include <QHBoxLayout>
#include <limits>

PropUiQSliderCtrl::PropUiQSliderCtrl(QWidget* parent) : PropUiQControl(parent) {}

bool PropUiQSliderCtrl::setupUi()
{
  PropUiQControl::setupUi();
  if (!m_bag)
    return false;
  auto* layout = setupRow();
  // Made with its parent: a slider adopted later by the layout is polished twice.
  m_slider = new PropQSliderBox(this);
  m_slider->setObjectName(QStringLiteral("slider"));
  m_slider->setOrientation(Qt::Horizontal);
  m_slider->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);

  HostVisualManager* theme = hostVisualManager();
  const QColor accent = propui::colorFromWord(theme->accentColor());
  const QColor handle = theme->isDarkTheme() ? accent.lighter(150) : accent.lighter(80);
  m_slider->setColors(accent, handle, propui::colorFromWord(theme->textColor(0)));

  PropVariant min, max;
  if (m_bag->getRange(m_index, m_element, min, max))
    setBoundedRange(min.getInt32(), max.getInt32());
  else
    m_slider->setRange(0, 100);

  connect(m_slider.data(), &QSlider::sliderReleased, this, &PropUiQSliderCtrl::onSliderReleased);
  connect(m_slider.data(), &PropQSliderBox::keyboardEditFinished, this, &PropUiQSliderCtrl::onSliderReleased);
  connect(m_slider.data(), &QSlider::valueChanged, m_slider.data(),
          [slider = m_slider.data()](int value) { slider->setToolTip(QString::number(value)); });
  layout->addWidget(m_slider);
  addActionsToolBar(layout);
  return true;
}

// The style measures positions with the span max - min in an int: a span of
// 2^31 or more would divide by zero when the slider paints. The top of the
// bag's range is kept and the bottom raised as far as needed.
void PropUiQSliderCtrl::setBoundedRange(int min, int max)
{
  const qint64 widest = std::numeric_limits<int>::max() - 1;
  if (qint64(max) - qint64(min) > widest)
    min = int(qint64(max) - widest);
  m_slider->setRange(min, max);
}

void PropUiQSliderCtrl::updateUi()
{
  PropUiQControl::updateUi();
  showEditable(m_slider);
}

void PropUiQSliderCtrl::updateData()
{
  PropUiQControl::updateData();
  if (!m_bag || !m_slider)
    return;
  PropVariant value;
  if (!readValue(value))
    return;
  // A refresh that lands while the user holds the handle or the keys
  // would move the value under them; their release writes and refreshes.
  if (m_slider->isSliderDown() || m_slider->isKeyboardEditing())
    return;
  if (value.isVaries())
  {
    setVaries(true);
    m_lastValue = m_slider->value();
  }
  else if (value.type() & PropVariant::kInt32)
  {
    setVaries(false);
    m_lastValue = value.getInt32();
    m_slider->setValue(m_lastValue);
  }
}

bool PropUiQSliderCtrl::isVaries() const
{
  return m_slider && m_slider->isVaries();
}

void PropUiQSliderCtrl::setVaries(bool varies)
{
  if (m_slider)
    m_slider->setVaries(varies);
}

void PropUiQSliderCtrl::onSliderReleased()
{
  if (!m_bag || !m_slider)
    return;
  const WriteScope applying(this);
  if (!applying.entered())
    return;
  PropVariant value;
  value.setInt32(m_slider->value());
  // Unlike the spin box, an unchanged value is written too.
  if (commitValue(value) != CommitResult::Written)
  {
    // The varies flag is still set: putting the value back brings the varies look back too.
    m_slider->setValue(m_lastValue);
    return;
  }
  m_lastValue = m_slider->value();
  setVaries(false);
  // The bag may keep another value than the one it was given (a step, a
  // limit of its own): what the slider shows is what the bag holds.
  PropVariant kept;
  if (readValue(kept) && !kept.isVaries() && (kept.type() & PropVariant::kInt32) && !kept.hasNoData() &&
      kept.getInt32() != m_lastValue)
  {
    m_lastValue = kept.getInt32();
    m_slider->setValue(m_lastValue);
  }
}
