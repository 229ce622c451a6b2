/// Windows that die and whose parent may die meanwhile.
#pragma once

#include <wx/window.h>

#include <type_traits> // wx/weakref.h needs it and does not include it
#include <wx/weakref.h>

namespace vela7 {

/// On the stack of a window's destructor: a listener, also one of a child's, may destroy the parent, which
/// must not delete the window a second time, and to which the window must not point any more then.
class CLeavingParent : public wxWeakRef<wxWindow>
{
public:
    /// parent: the window's own pointer to it; may be null.
    CLeavingParent(wxWindow& window, wxWindow*& parent) : wxWeakRef<wxWindow>(parent), m_parent(parent)
    {
        if (parent)
            parent->GetChildren().DeleteObject(&window);
    }

private:
    void OnObjectDestroy() override
    {
        wxWeakRef<wxWindow>::OnObjectDestroy();
        m_parent = nullptr;
    }

    wxWindow*& m_parent;
};

} // namespace vela7
