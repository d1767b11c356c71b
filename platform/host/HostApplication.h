#pragma once

#include "HostExport.h"

/** The settings of the host application that the property editors read. */
class HOST_EXPORT HostApplication
{
public:
  enum LabelAlignment
  {
    kLabelsRight = 0,
    kLabelsLeft = 1
  };

  /** 1: captions are aligned left; anything else: right. Read each time it is needed. */
  int labelAlignment() const { return m_labelAlignment; }
  void setLabelAlignment(int mode) { m_labelAlignment = mode; }

private:
  int m_labelAlignment = kLabelsRight;
};

HOST_EXPORT HostApplication* hostApplication();
