// The fixture of the contract tests: a stage with a toolkit window of 200 x 100 at (20, 10) on it.
#pragma once

#include "contract/backend.h"
#include "contract/recorder.h"

namespace vela7::contract {

class StageTest : public testing::Test
{
protected:
    void SetUp() override
    {
        stage = OpenStage();
        window = stage->Window().CreateChild(ISysWindow::wtNormal);
        window->SetWindowRect(20, 10, 220, 110, false);
        Settle();
        heard = std::make_unique<test::Recorder>(window);
    }
    void TearDown() override
    {
        heard.reset();
        stage.reset();
    }

    std::unique_ptr<Stage> stage;
    ISysWindow* window = nullptr; // the stage's
    std::unique_ptr<test::Recorder> heard;
};

} // namespace vela7::contract
