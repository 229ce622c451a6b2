// The X server as the user's hands and eyes: raw input and the picture on the screen, on a connection of its
// own, past wx and GTK. Tests use input.h and pixels.h, which are built on this. Coordinates are GTK's: where
// a pixel of its own has several of the screen's, the first of them counts.
#pragma once

#include <cstdint>
#include <vector>

namespace vela7::test::x11 {

void MovePointer(int x, int y);
void Button(int number, bool down);        // 1 left, 2 middle, 3 right, 4 and 5 wheel
bool Key(unsigned long keysym, bool down); // false when the keyboard has no such key

// A round trip through the window manager, which has then dealt with all earlier input (it holds each press
// back until it has seen it) and all earlier window requests.
bool SyncWithWindowManager();

// An area of the screen, which begins a fraction of a pixel later, row by row, as 0xRRGGBB; empty when it is
// not wholly on the screen.
std::vector<std::uint32_t> ReadScreen(int x, int y, int width, int height, int fractionX, int fractionY);

} // namespace vela7::test::x11
