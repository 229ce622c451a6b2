/// Visibility of what the wx back-end offers.
#pragma once

#define VELA7_WX_API __attribute__((visibility("default")))
