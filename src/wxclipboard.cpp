#include "vela7/wxclipboard.h"

#include "gtkport.h"
#include "vela7/wxconvert.h"

#include <wx/app.h>
#include <wx/clipbrd.h>
#include <wx/dataobj.h>

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
    // Some programs offer UTF-8 alone, which is another format.
    if (!clipboard || (!clipboard->IsSupported(wxDF_TEXT) && !clipboard->IsSupported(wxDF_UNICODETEXT)))
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
