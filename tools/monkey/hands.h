// The monkey's hands and ears on the X server: real input, requests to the window manager, and a ping that
// the program answers from its event loop.
#pragma once

#include "monkey/event.h"

#include <functional>
#include <memory>

namespace vela7::monkey {

class Hands
{
public:
    Hands(); // throws std::runtime_error without a display
    ~Hands();

    void BeginAnew();   // forgets the last program, when its windows have gone; then the next may start
    bool FindProgram(); // true when its main window is there

    void Perform(const Event& event);
    void AskToClose();

    enum class Answer
    {
        came,
        interrupted,
        none,
    };
    // A round trip through the window manager and the program, which has then dealt with all earlier input.
    Answer WaitForProgram(int milliseconds, const std::function<bool()>& interrupted);

private:
    struct Inside;
    std::unique_ptr<Inside> m;
};

} // namespace vela7::monkey
