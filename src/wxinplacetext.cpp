#include "vela7/wxinplacetext.h"

#include "vela7/system.h"
#include "vela7/velawxwindow.h"

#include <wx/app.h>
#include <wx/utils.h>

#include <new>

namespace vela7 {

CEditKeyEvent MakeEditKeyRecord(const wxKeyEvent& event)
{
    CEditKeyEvent record;
    record.keyState() = wx2velaKeyState(event);
    record.keyCode() = static_cast<std::uint32_t>(wx2velaKeyCode(event.GetKeyCode()));
    record.ch() = static_cast<unsigned char>(wx2velaChar(event.GetKeyCode()));
    return record;
}

point<int> ContextMenuPosition(const wxWindow& control, const wxContextMenuEvent& event)
{
    const wxPoint asked = event.GetPosition();
    const bool fromKeyboard = asked.x < 0 && asked.y < 0;
    const wxPoint client = control.ScreenToClient(fromKeyboard ? wxGetMousePosition() : asked);
    return {client.x, client.y};
}

void ForwardMotion(const wxWindow& control, wxMouseEvent& event)
{
    wxWindow* const parent = control.GetParent();
    if (!parent || event.LeftIsDown() || event.MiddleIsDown() || event.RightIsDown() || event.Aux1IsDown() ||
        event.Aux2IsDown())
        return;
    event.SetPosition(parent->ScreenToClient(control.ClientToScreen(event.GetPosition())));
    const ISystem* const system = GetCurrentSystem();
    if (system && system->IsAppActive())
        parent->GetEventHandler()->ProcessEvent(event);
}

CDeliveryCount& HostDeliveries(const wxWindow& control, CDeliveryCount& own)
{
    auto* const host = dynamic_cast<CVELAwxWindow*>(control.GetParent());
    return host ? host->deliveries : own;
}

void ShowControl(ICustomControl& control, wxWindow& native)
{
    const CLifeWatch alive = control.WatchLife();
    control.UpdateState();
    native.Show(true);
    if (alive.IsAlive())
        native.Update();
}

namespace {

void Create(wxTextCtrl& edit, wxWindow* parent, long style)
{
    edit.Create(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, style);
}

void Create(wxComboBox& combo, wxWindow* parent, long style)
{
    combo.Create(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, 0, nullptr, style);
}

// What wx finds where a control was that died in the middle of its own event: one that was never created.
template <class W>
class CRemains : public W
{
public:
    // What wx does last when it changes the text or the items; its own ones assert that there is a widget.
    using W::SetSelection;
    // One of the two has it. NOLINTNEXTLINE(modernize-use-override,clang-diagnostic-*)
    void SetSelection(int) {}
    void SetInsertionPoint(long) override {}

    // For wx to delete: clears the remains away.
    class CEnd : public wxObject
    {
    public:
        explicit CEnd(CRemains* remains) : m_remains(remains) {}
        CEnd(const CEnd&) = delete;
        CEnd& operator=(const CEnd&) = delete;
        ~CEnd() override
        {
            m_remains
                ->wxControl::~wxControl(); // what is above owns nothing, and asserts when it is destroyed
            ::operator delete(m_remains);
        }

    private:
        CRemains* m_remains;
    };
};

} // namespace

template <class W, class T>
CInplaceText<W, T>::CInplaceText(wxWindow* parent, long wxStyle, IChildFocusNotify* notify)
    : CFocusReporter<T>(this, notify)
{
    Create(static_cast<W&>(*this), parent, wxStyle);
    AdoptLayoutDirection(this);
}

// The counterpart that the compiler expects of operator delete; it looks through an inlined one.
template <class W, class T>
[[gnu::noinline]] void* CInplaceText<W, T>::operator new(std::size_t size)
{
    return ::operator new(size);
}

template <class W, class T>
void CInplaceText<W, T>::operator delete(void* storage)
{
    static_assert(sizeof(CRemains<W>) <= sizeof(CInplaceText), "they take its place");
    if (CDeliveryCount::TakeKept(storage)) {
        // NOLINTNEXTLINE(bugprone-unhandled-exception-at-new): without memory the end is near anyway
        auto* const end = new typename CRemains<W>::CEnd(::new (storage) CRemains<W>);
        wxApp::GetInstance()->ScheduleForDestruction(end);
    } else {
        ::operator delete(storage);
    }
}

template class CInplaceText<wxTextCtrl, CInplaceEdit>;
template class CInplaceText<wxComboBox, CInplaceComboBoxInt>;

} // namespace vela7
