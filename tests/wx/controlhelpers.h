// What the tests of in-place editors share.
#pragma once

#include "vela7/inplace.h"
#include "windowhelpers.h"

#include <gdk/gdkkeysyms.h>

namespace vela7::test {

// Writes down what an edit or a combo box reports. May outlive it.
class EditRecorder : public IEditNotify, public IComboBoxNotify, public IContextMenuNotify
{
public:
    using Action = std::function<void(CEvent*)>;

    explicit EditRecorder(IInplaceEdit& edit) : m_edit(&edit), m_life(edit.WatchLife())
    {
        Subscribe<IEditNotify>(edit, this);
        Subscribe<IComboBoxNotify>(edit, this);
        Subscribe<IContextMenuNotify>(edit, this);
    }
    ~EditRecorder() override { Forget(); }
    void Forget()
    {
        if (!m_life.IsAlive())
            return;
        m_edit->Unsubscribe(static_cast<IEditNotify*>(this), false);
        m_edit->Unsubscribe(static_cast<IComboBoxNotify*>(this), false);
        m_edit->Unsubscribe(static_cast<IContextMenuNotify*>(this), false);
    }

    // The focus signals too. Not for edits that outlive the recorder.
    void HearFocus()
    {
        m_edit->focus_in_signal.connect([this](ICustomControl*) { Note("in", nullptr, ""); });
        m_edit->focus_out_signal.connect([this](ICustomControl*) { Note("out", nullptr, ""); });
    }
    void DoIn(const std::string& hook, Action action) { m_hook = hook, m_action = std::move(action); }
    Lines Take() { return std::exchange(m_lines, {}); }
    // The first words only.
    std::string TakeNames()
    {
        std::string names;
        for (const std::string& line : Take())
            names += (names.empty() ? "" : " ") + line.substr(0, line.find(' '));
        return names;
    }

    void OnEditTextChanged(CEditTextEvent* e) override { Note("text", e, e->text); }
    void OnEditChar(CEditKeyEvent* e) override { NoteKey("char", e); }
    void OnEditKeyDown(CEditKeyEvent* e) override { NoteKey("keydown", e); }
    void OnEditEnter(CEditEnterEvent* e) override { Note("enter", e, ""); }
    void OnComboDropDown(CEvent* e) override { Note("dropdown", e, ""); }
    void OnComboItemSelected(CComboEvent* e) override { Note("item", e, std::to_string(e->index)); }
    void OnContextMenu(CContextMenuEvent* e) override { Note("menu", e, At(e->position.x, e->position.y)); }

private:
    void NoteKey(const std::string& hook, CEditKeyEvent* e)
    {
        std::ostringstream text;
        text << e->keyCode() << " 0x" << std::hex << e->keyState() << ' ' << std::dec << int{e->ch()};
        Note(hook, e, text.str());
    }
    void Note(const std::string& hook, CEvent* e, const std::string& text)
    {
        EXPECT_TRUE(!e || (e->sender == m_edit && e->passOn)) << hook;
        m_lines.push_back(text.empty() ? hook : hook + ' ' + text);
        const Action action = m_action;
        if (action && m_hook == hook)
            action(e);
    }

    IInplaceEdit* m_edit;
    CLifeWatch m_life;
    Lines m_lines;
    std::string m_hook;
    Action m_action;
};

// An edit (false) or a combo box (true) over the window, at (10,10) of 140x30, with the focus.
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
    }

    CHandle<IInplaceEdit> text;
    wxWindow* control = nullptr;
};

} // namespace vela7::test
