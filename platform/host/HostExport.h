#pragma once

#define HOST_EXPORT __attribute__((visibility("default")))
