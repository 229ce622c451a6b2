#include "vela7/testing/fakenative.h"

#include "desk.h"

#include <algorithm>

namespace vela7::testkit {

FakeNative::FakeNative(FakeNative& parent, const rectangle<int>& rect)
    : m_desk(parent.m_desk), m_rect(rect), m_parent(&parent)
{
    parent.m_children.push_back(this);
}

FakeNative::~FakeNative()
{
    EndChildren();
    m_desk.Forget(*this);
    if (m_parent) {
        auto& siblings = m_parent->m_children;
        siblings.erase(std::find(siblings.begin(), siblings.end(), this));
    }
}

// Each may end others.
void FakeNative::EndChildren()
{
    while (!m_children.empty())
        delete m_children.back();
}

void FakeNative::Close()
{
    if (m_ending)
        return;
    if (!IsInUse()) {
        delete this;
        return;
    }
    m_ending = true;
    m_desk.EndLater(*this);
    Silence();
}

bool FakeNative::Holds(const FakeNative* other) const
{
    while (other && other != this)
        other = other->m_parent;
    return other != nullptr;
}

bool FakeNative::IsOnScreen() const
{
    return m_visible && (!m_parent || m_parent->IsOnScreen());
}

bool FakeNative::IsUsable() const
{
    return m_visible && m_enabled && !m_ending && (!m_parent || m_parent->IsUsable());
}

bool FakeNative::HasFocus() const
{
    return m_desk.Focus() == this;
}

point<int> FakeNative::Origin() const
{
    const point<int> above = m_parent && !IsTopLevel() ? m_parent->Origin() : point<int>();
    return {above.x + m_rect.left, above.y + m_rect.top};
}

// What has the focus loses it with its visibility, and nobody gets it.
void FakeNative::Show(bool visible)
{
    m_visible = visible;
    if (!visible && Holds(m_desk.Focus()))
        m_desk.SetFocus(nullptr);
}

void FakeNative::Enable(bool enabled)
{
    m_enabled = enabled;
    if (!enabled && Holds(m_desk.Focus()))
        m_desk.SetFocus(nullptr);
}

void FakeNative::TakeFocus()
{
    if (AcceptsFocus() && IsUsable())
        m_desk.SetFocus(this);
}

bool FakeNative::KeyDown(std::uint32_t, std::uint32_t)
{
    return false;
}

void FakeNative::KeyUp(std::uint32_t, std::uint32_t) {}
void FakeNative::Char(unsigned char, std::uint32_t) {}

std::uint32_t OneModifier(std::uint32_t state)
{
    for (const std::uint32_t bit : {ksShift, ksAlt, ksControl})
        if (state & bit)
            return bit;
    return 0;
}

} // namespace vela7::testkit
