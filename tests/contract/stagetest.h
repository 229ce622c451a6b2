// The fixtures of the contract tests, each with somebody to hear the window.
#pragma once

#include "contract/backend.h"
#include "contract/recorder.h"

namespace vela7::contract {

// The window that fills the stage.
class OnStage : public testing::Test
{
protected:
    void SetUp() override { Use(stage->Window()); }
    void TearDown() override { heard.reset(); }
    void Use(ISysWindow& used)
    {
        window = &used;
        heard = std::make_unique<test::Recorder>(window);
    }

    std::unique_ptr<Stage> stage = OpenStage();
    ISysWindow* window = nullptr; // the stage's
    std::unique_ptr<test::Recorder> heard;
};

// A window of 200 x 100 at (20, 10) on that.
class StageTest : public OnStage
{
protected:
    void SetUp() override
    {
        Use(*stage->Window().CreateChild(ISysWindow::wtNormal));
        window->SetWindowRect(20, 10, 220, 110, false);
        Settle();
    }
};

} // namespace vela7::contract
