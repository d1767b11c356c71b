#pragma once

#include "OdRxModule.h"
#include "PropWidgetsService.h"

/** The run-time module of the library: publishes the control registry while started. */
class PropWidgetsModule : public OdRxModule
{
public:
  void initApp() override;
  void uninitApp() override;

private:
  PropWidgetsServicePtr m_service;
};
