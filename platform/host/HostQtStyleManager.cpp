#include "HostQtStyleManager.h"

#include "HostQtStyle.h"
#include <QApplication>
#include <QPalette>
#include <QStyle>

namespace
{

QPalette darkPalette()
{
  const QColor window(0x2b, 0x2d, 0x30), base(0x1e, 0x1f, 0x22), text(0xdf, 0xe1, 0xe5);
  const QColor button(0x39, 0x3b, 0x40), highlight(0x35, 0x74, 0xf0), disabled(0x7a, 0x7e, 0x85);
  QPalette p;
  p.setColor(QPalette::Window, window);
  p.setColor(QPalette::WindowText, text);
  p.setColor(QPalette::Base, base);
  p.setColor(QPalette::AlternateBase, window);
  p.setColor(QPalette::ToolTipBase, button);
  p.setColor(QPalette::ToolTipText, text);
  p.setColor(QPalette::PlaceholderText, disabled);
  p.setColor(QPalette::Text, text);
  p.setColor(QPalette::Button, button);
  p.setColor(QPalette::ButtonText, text);
  p.setColor(QPalette::BrightText, Qt::white);
  p.setColor(QPalette::Highlight, highlight);
  p.setColor(QPalette::HighlightedText, Qt::white);
  p.setColor(QPalette::Link, QColor(0x54, 0x8a, 0xf7));
  p.setColor(QPalette::Light, QColor(0x4a, 0x4d, 0x52));
  p.setColor(QPalette::Midlight, QColor(0x43, 0x45, 0x4a));
  p.setColor(QPalette::Mid, QColor(0x33, 0x35, 0x39));
  p.setColor(QPalette::Dark, QColor(0x1b, 0x1c, 0x1f));
  p.setColor(QPalette::Shadow, QColor(0x0e, 0x0f, 0x10));
  for (auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    p.setColor(QPalette::Disabled, role, disabled);
  p.setColor(QPalette::Disabled, QPalette::Base, window);
  p.setColor(QPalette::Disabled, QPalette::Button, QColor(0x32, 0x34, 0x38));
  return p;
}

QPalette lightPalette()
{
  QPalette p = QApplication::style() ? QApplication::style()->standardPalette() : QPalette();
  p.setColor(QPalette::Highlight, QColor(0x35, 0x74, 0xf0));
  p.setColor(QPalette::HighlightedText, Qt::white);
  return p;
}

} // namespace

void HostQtStyleManager::setTheme(int theme)
{
  m_theme = theme == Dark ? Dark : Light;
  if (qobject_cast<QApplication*>(QCoreApplication::instance()))
  {
    // Over whatever style the application chose; set before the palette, which a new style would reset.
    if (QApplication::style() && !qobject_cast<HostQtStyle*>(QApplication::style()))
      QApplication::setStyle(new HostQtStyle(QApplication::style()->objectName()));
    QApplication::setPalette(m_theme == Dark ? darkPalette() : lightPalette());
  }
  Q_EMIT themeChanged(m_theme);
}

HostQtStyleManager* hostGetQtStyleManager()
{
  static HostQtStyleManager manager;
  return &manager;
}
