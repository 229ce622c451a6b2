// Where things end: a tree of windows on the frame of the test, and whatever stands on one of them. A cell of
// the table springs inside one notification, ends something there, and may then run a nested event loop.
#pragma once

#include "wx/controlhelpers.h"
#include "wx/menudriver.h"

#include "vela7/popup.h"
#include "vela7/wxcustomcontrol.h"
#include "vela7/wxscrollbar.h"
#include "vela7/wxtooltip.h"

#include <wx/textctrl.h>

#include <array>
#include <ostream>

namespace vela7::test {

// What may end. The table in scene.cpp says what ends with what.
enum Thing
{
    nothing,
    theFrame,
    theGrand,
    thePanel,
    theOuter, // toolkit window around the window, in some scenes
    theWindow,
    theChild,
    theSibling,
    theControl,  // on the window: editor, combo box, bar or held control
    theStranger, // held control elsewhere
    theHolder,   // of a control that lives on
    thePopup,
    theContent,
    theTip,
    theLayer,
    thingCount,
    // Not watched; they tell what there is to end.
    theHandle = thingCount, // of a control that ends with it
    theMenus
};
using Things = std::array<Thing, 3>;
constexpr unsigned Set(Thing thing)
{
    return 1u << thing;
}
constexpr unsigned onFrame = Set(theFrame) | Set(theWindow) | Set(theChild) | Set(theSibling);
constexpr unsigned onPanel = onFrame | Set(theGrand) | Set(thePanel);

class Scene;
using Step = void (*)(Scene&);

struct Row // one notification
{
    const char* name;
    const char* hook; // as the recorders call it
    Step prepare;     // before anybody listens
    Step provoke;
    Thing ends = nothing; // by itself
};

struct Family // a scene and the notifications that there are in it
{
    const char* name;
    Step make;
    const Row* rows;
    std::size_t count;
    unsigned has;              // the things in it
    Thing subject = theWindow; // whose recorder springs; nothing: something else does
};

struct Victim
{
    const char* name;
    Things ends;
    unsigned needs; // one of these is in the scene
    Step kill;
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
    bool Is(const char* stages, const char* victims) const; // by patterns of the shell
    std::string Name() const;
};
inline std::ostream& operator<<(std::ostream& out, const Cell& cell)
{
    return out << cell.Name();
}

// The families of each file.
std::vector<Family> WindowFamilies();
std::vector<Family> HostFamilies();
std::vector<Family> ControlFamilies();
std::vector<Family> PopupFamilies();

// A listener of bars and menus.
struct Ear : CSubscriber<IScrollBarNotify>, CSubscriber<IMenuNotify>
{
    void OnScroll(CScrollEvent*) override { heard(); }
    void OnMenuCommand(CMenuEvent*) override { heard(); }
    std::function<void()> heard;
};

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
    void MakeTip();
    void MakeLayer();
    void MakeMenus();

    // Has the notification of the cell spring.
    void Arm(const Cell& cell);
    void Spring();
    // The same from a host's own handler, which may go on to the next one.
    template <class Type>
    void Host(wxEvtHandler* on, const Type& type)
    {
        on->Bind(type, [this](wxEvent& event) {
            const bool skips = hostSkips; // the handler may be gone afterwards
            Spring();
            event.Skip(skips);
        });
    }
    void Forget(); // ends what Arm began
    void PointAt(int x, int y) { test::PointAt(native, x, y); }
    void HideOthers() { other->Hide(), sibling ? sibling->SetVisible(false) : void(); }
    void DropAll() { control.Reset(), popup.Reset(), menus ? menus->Reset() : void(); }
    bool Lives(Thing thing) const;
    ISysWindow* Toolkit(Thing thing) const; // window

    void Check(const Cell& cell); // what has ended and what has not
    void FrameWorks();            // it hears keys and clicks, and nothing is grabbed

    using GuiTest::frame;
    wxWindow *grand = nullptr, *panel = nullptr; // null where the window fills the frame
    wxWindow* parent = nullptr;                  // of the native window
    ISysWindow* outer = nullptr;
    CwxSysWindow* window = nullptr;
    wxWindow* native = nullptr;
    ISysWindow* inner = nullptr; // child of the window
    CwxSysWindow* sibling = nullptr;
    wxTextCtrl* other = nullptr; // takes the focus
    CHandle<ICustomControl> control;
    CHandle<IInplaceEdit> text; // the same, while it is prepared
    wxWindow* nativeControl = nullptr;
    CHandle<IPopup> popup;
    ISysWindow* content = nullptr;
    CwxTooltip* tip = nullptr;
    ISysWindow* layer = nullptr;
    std::unique_ptr<MenuTree> menus;
    bool hostSkips = false;
    int calls = 0; // of the armed notification

protected:
    void TearDown() override;

private:
    struct Watched
    {
        bool made = false;
        wxWeakRef<wxWindow> native;
        CLifeWatch life;
        std::unique_ptr<Recorder> heard; // of toolkit windows
    };
    void Watch(Thing thing, wxWindow* watched, const CBase* toolkit, ISysWindow* listened = nullptr);
    void Hold(CHandle<ICustomControl> made, Thing as = theControl);
    void CheckThing(Thing thing, bool ends);
    bool EndsWith(Thing thing, const Cell& cell) const;

    const Cell* m_cell = nullptr;
    std::array<Watched, thingCount> m_watched;
    std::unique_ptr<Recorder> m_first, m_second;
    std::unique_ptr<EditRecorder> m_edits;
    Ear m_ear;
};

template <class Event>
void Send(wxWindow* window, Event event)
{
    event.SetEventObject(window);
    window->HandleWindowEvent(event);
}

// Rows without a notification: in the middle of something else, by a call of the host or by its timer.
inline void Now(Scene& s)
{
    s.Spring();
}
void ByTimer(Scene& s);

// Until all that has been left to an idle pass has ended.
void RunLoopUntilIdle(Scene&);
void ShowModalDialog(Scene&); // for the same time

} // namespace vela7::test
