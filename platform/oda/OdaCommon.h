#pragma once

#include "OdaExport.h"
#include <cstdint>

typedef wchar_t OdChar;
typedef std::int8_t OdInt8;
typedef std::int16_t OdInt16;
typedef std::int32_t OdInt32;
typedef std::int64_t OdInt64;
typedef std::uint8_t OdUInt8;
typedef std::uint16_t OdUInt16;
typedef std::uint32_t OdUInt32;
typedef std::uint64_t OdUInt64;
