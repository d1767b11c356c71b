#pragma once

/** Result codes carried by OdError. */
enum OdResult
{
  eOk = 0,
  eInvalidInput = 3,
  eInvalidIndex = 5,
  eOutOfMemory = 6,
  eNullPtr = 7,
  eKeyNotFound = 255,
  eDuplicateKey = 314
};
