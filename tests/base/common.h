/// What several tests of the base library use.
#pragma once

#include "vela7/eventsender.h"
#include "vela7/palette.h"
#include "vela7/testing/recordingpainter.h"

#include <gtest/gtest.h>

namespace vela7 {

using testkit::Lines;

/// A listener for several notification interfaces.
template <class... N>
class Listening : public CSubscriber<N>...
{
public:
    explicit Listening(IEventSender& sender) { (Subscribe<N>(sender, this), ...); }
};

/// Each colour's red part is its code.
class CodePalette : public ISysPalette
{
    _color GetSystemColor(SysColor code) const override { return {static_cast<unsigned char>(code), 0, 0}; }
};

/// A painter inside its bracket.
class Painting : public testing::Test
{
protected:
    Painting() { Begin(); }

    void Begin()
    {
        p.EndPaint();
        p.BeginPaint();
        p.drawn.Take();
    }
    /// The one line that an operation made.
    std::string Line()
    {
        const Lines lines = p.drawn.Take();
        return lines.size() == 1 ? lines[0] : std::to_string(lines.size()) + " lines";
    }

    testkit::RecordingPainter p;
};

} // namespace vela7
