#include "vela7/testing/fakepopup.h"

#include "desk.h"
#include "vela7/testing/fakewindow.h"

#include <algorithm>

namespace vela7::testkit {

FakePopup::FakePopup(FakeWindow& creator)
    : FakeNative(creator, {0, 0, 20, 20}), m_creator(creator),
      m_content(new FakeWindow(*this, {0, 0, 20, 20}))
{
    m_visible = false;
    m_content->SetPopup(1);
}

FakePopup::~FakePopup()
{
    RevokeHandles();
    m_visible = false; // the focus does not go back from a popup that dies while it is shown
    LeaveDesk();
    EndChildren();
}

void FakePopup::Dispose()
{
    const Use use(*this);
    RevokeHandles();
    Hide();
    if (use.IsAlive() && !IsEnding())
        m_desk.EndLater(*this);
}

void FakePopup::LeaveDesk()
{
    auto& shown = m_desk.popups;
    shown.erase(std::remove(shown.begin(), shown.end(), this), shown.end());
}

void FakePopup::Show(int x, int y)
{
    m_rect = {x, y, x + m_rect.Width(), y + m_rect.Height()};
    if (m_visible || !m_content)
        return;
    const Use use(*this);
    m_content->Resize(m_rect.Width(), m_rect.Height()); // hears of its size before it is seen
    if (!use.IsWanted())
        return;
    m_visible = m_watching = true;
    m_desk.popups.push_back(this);
    m_desk.SetFocus(m_content);
}

void FakePopup::Hide()
{
    if (!m_visible)
        return;
    m_watching = false;
    LeaveDesk();
    const Use use(*this);
    FakeNative::Show(false);
    if (use.IsAlive())
        GiveFocusBack();
}

void FakePopup::ClickedElsewhere()
{
    m_watching = false;
    if (m_autoHide)
        Hide();
    else
        GiveFocusBack(); // Kept by contract: also when the popup stays
}

void FakePopup::GiveFocusBack()
{
    struct Refocus : IRunnable
    {
        explicit Refocus(ISysWindow& to) : window(to) {}
        bool Run() override { return window.SetFocus(), true; }
        ISysWindow& window;
    };
    if (!m_creator.IsDestroyed())
        m_creator.Synchronize(new Refocus(m_creator));
}

// It is being destroyed, together with this popup or on its own.
void FakePopup::LoseContent(const FakeWindow& content)
{
    if (&content != m_content)
        return;
    m_content = nullptr;
    Hide();
}

void FakePopup::SetSize(int width, int height)
{
    m_rect = {m_rect.left, m_rect.top, m_rect.left + width, m_rect.top + height};
    if (m_visible && m_content)
        m_content->Resize(width, height);
}

void FakePopup::GetSize(int* width, int* height)
{
    if (width)
        *width = m_rect.Width();
    if (height)
        *height = m_rect.Height();
}

ISysWindow* FakePopup::GetContent()
{
    return m_content;
}

ISysWindow* FakePopup::GetParent()
{
    return &m_creator;
}

} // namespace vela7::testkit
