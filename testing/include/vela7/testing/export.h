/// Visibility of what the testing library offers.
#pragma once

#define VELA7_TESTING_API __attribute__((visibility("default")))
