// What the tests of in-place editors share.
#pragma once

#include "vela7/inplace.h"
#include "windowhelpers.h"

#include <gdk/gdkkeysyms.h>

namespace vela7::test {

// An edit (false) or a combo box (true) over the window, at (10,10) of 140x30, with the focus, and somebody
// to hear it.
class EditAndCombo : public WindowTest, public testing::WithParamInterface<bool>
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(WindowTest::SetUp());
        const auto combo = GetParam() ? window->CreateInplaceComboBox(true) : CHandle<IInplaceComboBox>();
        text = GetParam() ? CHandle<IInplaceEdit>(combo.Get()) : window->CreateInplaceEdit(0);
        text->SetPos(10, 10, 150, 40);
        control = static_cast<wxWindow*>(text->GetNativeHandle());
        text->SetFocus();
        Settle();
        ASSERT_TRUE(text->GetFocused());
        edits = std::make_unique<Recorder>(text.Get());
        edits->HearAll();
    }

    CHandle<IInplaceEdit> text;
    wxWindow* control = nullptr;
    std::unique_ptr<Recorder> edits;
};

} // namespace vela7::test
