#include "PropUiQSliderCtrl.h"

#include "HostVisualManager.h"
#include "PropBag.h"
#include "PropUiActionToolButtonsCtrl.h"
#include "PropUiThemeColors.h"
#include <QHBoxLayout>
#include <limits>

PropUiQSliderCtrl::PropUiQSliderCtrl(QWidget* parent) : PropUiQControl(parent) {}

bool PropUiQSliderCtrl::setupUi()
{
  PropUiQControl::setupUi();
  if (!m_bag)
    return false;
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  m_slider = new PropQSliderBox;
  m_slider->setObjectName(QStringLiteral("slider"));
  m_slider->setOrientation(Qt::Horizontal);
  m_slider->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);

  HostVisualManager* theme = hostVisualManager();
  const QColor accent = propui::colorFromWord(theme->accentColor());
  const QColor handle = theme->isDarkTheme() ? accent.lighter(150) : accent.lighter(80);
  // The groove is as tall as the new slider, taken before any layout sizes it, so it fills the slider.
  m_slider->setStyleSheet(
    QStringLiteral("QSlider::groove:horizontal{height: %1px;background: %2;border-radius: 0px;}"
                   "QSlider::handle:horizontal{background: %3;width: 5px;border-radius: 0px;border: 0px;border-color: %3;}"
                   "QSlider::sub-page:horizontal{background: %3;border-radius: 0px;}")
      .arg(m_slider->height())
      .arg(accent.name(), handle.name()));

  PropVariant min, max;
  if (m_bag->getRange(m_index, m_element, min, max))
    setBoundedRange(min.getInt32(), max.getInt32());
  else
    m_slider->setRange(0, 100);

  connect(m_slider.data(), &QSlider::sliderReleased, this, &PropUiQSliderCtrl::onSliderReleased);
  connect(m_slider.data(), &QSlider::valueChanged, m_slider.data(),
          [slider = m_slider.data()](int value) { slider->setToolTip(QString::number(value)); });
  layout->addWidget(m_slider);
  if (PropUiActionToolButtonsCtrl* toolbar = createActionsToolBar())
    layout->addWidget(toolbar);
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
  if (m_bag && m_slider)
    m_slider->setEnabled(m_bag->isEditable(m_index, m_element));
}

void PropUiQSliderCtrl::updateData()
{
  PropUiQControl::updateData();
  if (!m_bag || !m_slider)
    return;
  PropVariant value;
  if (!readValue(value))
    return;
  if (value.isVaries())
    setVaries(true);
  else if (value.type() & PropVariant::kInt32)
  {
    m_lastValue = value.getInt32();
    m_slider->setValue(m_lastValue);
  }
}

void PropUiQSliderCtrl::onSliderReleased()
{
  if (!m_bag || !m_slider)
    return;
  PropVariant value;
  value.setInt32(m_slider->value());
  // Unlike the spin box, an unchanged value is written too.
  if (commitValue(value) == CommitResult::Written)
    m_lastValue = m_slider->value();
  else
    m_slider->setValue(m_lastValue);
}
