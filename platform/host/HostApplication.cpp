#include "HostApplication.h"

HostApplication* hostApplication()
{
  static HostApplication app;
  return &app;
}
