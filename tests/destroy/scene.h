// Where things end: a tree of windows on the frame of the test, and whatever stands on one of them. A cell of
// the table springs inside one notification, ends something there, and may then run a nested event loop.
#pragma once

#include "wx/menudriver.h"

#include "vela7/inplace.h"
#include "vela7/popup.h"
#include "vela7/scrollbar.h"
#include "vela7/wxtooltip.h"

#include <array>
#include <optional>

namespace vela7::test {

// clang-format off
// What may end. The table in scene.cpp says what ends with what.
enum Thing
{
    nothing,
    theFrame, theGrand, thePanel,
    theOuter, // toolkit window around the window, in some scenes
    theWindow, theChild, theSibling,
    theControl,  // on the window: editor, combo box, bar or held control
    theStranger, // held control elsewhere
    theHolder,   // of a control that lives on
    thePopup, theContent, theTip, theLayer,
    thingCount,
    // Not watched; they tell what there is to end.
    theHandle = thingCount, // of a control that ends with it
    theMenus
};
// clang-format on
constexpr unsigned Set(Thing thing)
{
    return 1u << thing;
}
constexpr unsigned onFrame = Set(theFrame) | Set(theWindow) | Set(theChild) | Set(theSibling);
constexpr unsigned onPanel = onFrame | Set(theGrand) | Set(thePanel);
constexpr unsigned onOuter = onPanel | Set(theOuter);

class Scene;
using Step = void (*)(Scene&);

struct Row // one notification
{
    const char* name;
    const char* hook; // as the recorders call it; none for a call of the host or its timer
    Step prepare;     // before anybody listens
    Step provoke;
    Thing ends = nothing; // by itself
};

struct Family // a scene and the notifications that there are in it
{
    const char* name;
    Step make;
    const std::vector<Row>& rows;
    unsigned has;              // the things in it
    Thing subject = theWindow; // whose recorder springs; nothing: something else does
};

struct Victim
{
    const char* name;
    std::array<Thing, 3> ends;
    Step kill;
    unsigned needs = 0;    // one of these is in the scene; 0: the first that ends
    bool inDialog = false; // also with a modal dialog afterwards
};

struct After
{
    const char* name;
    Step run;
};

struct Cell
{
    const Family* family;
    const Row* row;
    const Victim* victim;
    const After* after;
    std::string Name() const;
    bool Is(const char* stages, const char* victims, const char* afters = "*") const; // shell patterns
};
inline std::ostream& operator<<(std::ostream& out, const Cell& cell)
{
    return out << cell.Name();
}

std::vector<Family> WindowFamilies();
std::vector<Family> ControlFamilies();
std::vector<Family> PopupFamilies();

class Scene : public GuiTest
{
public:
    enum Shape
    {
        child,
        nested,      // the child of a toolkit window
        filling,     // fills the panel
        fillingFrame // without any panel
    };
    void Build(Shape shape);
    void MakeEdit(unsigned long style);
    void MakeCombo(bool editable);
    void MakeBar();
    void MakeHeld(bool autoDelete, bool elsewhere);
    void MakePopup();
    void MakeLayer();

    void Arm(const Cell& cell); // has its notification spring
    void Spring();
    void Forget(); // ends what Arm began
    // Has a host's own handler spring, and go on to the next handler or not.
    template <class Type>
    void Host(wxEvtHandler* on, const Type& type)
    {
        on->Bind(type, [this, skips = hostSkips](wxEvent& event) {
            const bool goesOn = skips; // the handler may be gone afterwards
            Spring();
            event.Skip(goesOn);
        });
    }
    ISysWindow* Window(Thing thing) const { return m_watched[thing].window; }
    wxWindow* Raw(Thing thing) const { return m_watched[thing].made; }
    bool Lives(Thing thing) const { return m_watched[thing].native && *m_watched[thing].native; }
    void PointAt(Thing thing, int x, int y) { test::PointAt(Raw(thing), x, y); }
    void Check(const Cell& cell); // what has ended and what has not
    void FrameWorks();            // it hears keys and clicks, and nothing is grabbed

    using GuiTest::frame;
    wxWindow* parent = nullptr; // of the native window
    CwxSysWindow* window = nullptr;
    wxWindow* native = nullptr;
    wxWindow* other = nullptr; // takes the focus
    wxWindow* field = nullptr; // so does this, by a click
    CHandle<ICustomControl> control;
    CHandle<IInplaceEdit> text; // the same, while it is prepared
    wxWindow* nativeControl = nullptr;
    CHandle<IPopup> popup;
    CwxTooltip* tip = nullptr;
    std::unique_ptr<MenuTree> menus;
    bool hostSkips = false;
    int calls = 0; // of the armed notification

protected:
    void TearDown() override;

private:
    struct Watched
    {
        wxWindow* made = nullptr; // also when it is gone
        std::optional<wxWeakRef<wxWindow>> native;
        CLifeWatch life;
        ISysWindow* window = nullptr;
        std::unique_ptr<Recorder> heard;
    };
    void Watch(Thing thing, wxWindow* watched);
    void Watch(Thing thing, ISysWindow* watched);
    void Hold(CHandle<ICustomControl> made, Thing as = theControl);
    bool EndsWith(Thing thing, const Cell& cell) const;
    void CheckThing(Thing thing, bool ends);

    const Cell* m_cell = nullptr;
    std::array<Watched, thingCount> m_watched;
    std::unique_ptr<Recorder> m_first, m_second; // of the window
    std::unique_ptr<Recorder> m_ear;             // of the control, the menu
};

template <class Event>
void Send(wxWindow* window, Event event)
{
    event.SetEventObject(window);
    window->HandleWindowEvent(event);
}

// ---- steps

const Step Nothing = [](Scene&) {};
const Step Now = [](Scene& s) { s.Spring(); };
void ByTimer(Scene& s);

// Until all that has been left to an idle pass has ended.
void RunLoopUntilIdle(Scene&);
void ShowModalDialog(Scene&);

} // namespace vela7::test
