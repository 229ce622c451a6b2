/// A popup that a click elsewhere hides (User), and that gives the focus back.
///
/// What works: content, place and size, visibility, the click elsewhere with and without auto-hide, the focus
/// that goes to the content and comes back to the opener with the next Settle, ends in any order. What does
/// not: it does not hide with the windows above it, which only take it from the screen. CreatePopup makes it;
/// it ends with its last handle or with the window that made it.
#pragma once

#include "vela7/popup.h"
#include "vela7/testing/export.h"
#include "vela7/testing/fakenative.h"

namespace vela7::testkit {

class FakeWindow;

class VELA7_TESTING_API FakePopup final : public IPopup, public FakeNative
{
public:
    explicit FakePopup(FakeWindow& creator);
    ~FakePopup() override;
    void Dispose() override;

    /// A click elsewhere would reach it. Not any more after one that auto-hide kept from hiding it.
    bool IsWatching() const { return m_watching; }
    /// The user clicks elsewhere.
    void ClickedElsewhere();

    void Show(int x, int y) override;
    void Hide() override;
    bool IsVisible() const override { return m_visible; }
    void SetAutoHide(bool autoHide) override { m_autoHide = autoHide; }
    void SetSize(int width, int height) override;
    void GetSize(int* width, int* height) override;
    ISysWindow* GetContent() override;
    ISysWindow* GetParent() override;

private:
    friend class FakeWindow;

    bool IsTopLevel() const override { return true; }
    void LoseContent(const FakeWindow& content);
    void LeaveDesk();
    void GiveFocusBack();

    FakeWindow& m_creator; // its parent
    FakeWindow* m_content; // its child; null when that is gone
    bool m_autoHide = true;
    bool m_watching = false;
};

} // namespace vela7::testkit
