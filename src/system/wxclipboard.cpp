#include "vela7/wxclipboard.h"

#include "port/gtkport.h"
#include "vela7/wxconvert.h"

#include <wx/app.h>
#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/evtloop.h>

#include <memory>

namespace vela7 {

namespace {

struct Closing
{
    void operator()(wxClipboard* clipboard) const { clipboard->Close(); }
};
using OpenClipboard = std::unique_ptr<wxClipboard, Closing>;

/// wx's clipboard for the length of a scope; null when it cannot be opened.
OpenClipboard Open()
{
    // Asking for the clipboard creates windows, and nobody destroys it once the application is gone.
    const bool isThere = wxApp::GetInstance() && gtkport::DisplayIsOpen();
    wxClipboard* const clipboard = isThere ? wxClipboardBase::Get() : nullptr;
    const bool isOpen = clipboard && !clipboard->IsOpened() && clipboard->Open(); // opening twice asserts
    return OpenClipboard(isOpen ? clipboard : nullptr);
}

/// The formats that the owner of the clipboard offers, all from one question: an owner that never answers
/// costs half a minute each time, and wx asks anew for every format.
class COffer : public wxEvtHandler
{
public:
    explicit COffer(wxClipboard& clipboard)
    {
        const wxEventLoopGuarantor loop;
        const auto serve = [] { wxEventLoopBase::GetActive()->YieldFor(wxEVT_CATEGORY_CLIPBOARD); };
        while (!clipboard.IsSupportedAsync(this)) // somebody else's question is on its way
            serve();
        while (!m_answer) // GTK gives the owner up in the end
            serve();
    }

    bool Has(wxDataFormatId format) const { return m_answer->SupportsFormat(format); }

    /// wx's answer, taken before it gets into the queue: that may stand still.
    void QueueEvent(wxEvent* event) override { m_answer.reset(static_cast<wxClipboardEvent*>(event)); }

private:
    std::unique_ptr<wxClipboardEvent> m_answer;
};

} // namespace

void CwxClipboard::SetText(const std::string& text)
{
    const OpenClipboard clipboard = Open();
    if (!clipboard)
        return;
    clipboard->Clear();
    clipboard->SetData(new wxTextDataObject(vela2wx(text)));
}

std::string CwxClipboard::GetText() const
{
    const OpenClipboard clipboard = Open();
    if (!clipboard)
        return {};
    const COffer offer(*clipboard);
    if (!offer.Has(wxDF_TEXT) && !offer.Has(wxDF_UNICODETEXT)) // some programs offer UTF-8 alone
        return {};
    wxTextDataObject data; // empty, or wx would take an empty answer for a failure
    return clipboard->GetData(data) ? wx2vela(data.GetText()) : std::string();
}

void CwxClipboard::Clear()
{
    if (const OpenClipboard clipboard = Open())
        clipboard->Clear();
}

void CwxClipboard::RaiseChangeEvent()
{
    CEvent event(this);
    FireEvent(typeid(IClipboardChangeNotify), handler_cast(&IClipboardChangeNotify::OnClipboardChange),
              &event, true);
}

} // namespace vela7
