/// Visibility of what the base library offers.
///
/// Classes carry it as a whole: their type information crosses library borders (subscriptions are keyed on
/// it, exceptions are caught by it), so it must be the same object everywhere.
#pragma once

#define VELA7_BASE_API __attribute__((visibility("default")))
