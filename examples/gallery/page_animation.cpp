/// Animations: two that move and one that does not, each with a timer of its own.

#include "animations.h"
#include "cards.h"

#include "vela7/animation.h"
#include "vela7/notify.h"
#include "vela7/system.h"

#include <cmath>

namespace gallery {

using namespace vela7;

namespace {

/// Steps an animation when its frames are due.
class Player : CSubscriber<ITimerNotify>
{
public:
    template <std::size_t N>
    Player(const unsigned char (&gif)[N], std::function<void()> changed)
        : m_animation(LoadAnimation(gif, N)), m_changed(std::move(changed))
    {
        if (m_animation)
            m_timer = GetCurrentSystem()->CreateTimer(1, false);
        if (m_timer)
            Subscribe<ITimerNotify>(*m_timer, this);
        Play(true);
    }

    IAnimation* Animation() const { return m_animation.Get(); }
    int Steps() const { return m_steps; }

    void Play(bool play)
    {
        if (!m_animation)
            return;
        m_animation->NextFrame(); // a frame shown for ever says so only after a step
        const int delay = m_animation->GetDelay();
        if (!m_timer)
            return;
        m_timer->SetInterval(std::max(delay, 1));
        m_timer->SetEnabled(play && delay >= 0);
    }

    void OnTimer(CTimerEvent*) override
    {
        ++m_steps;
        Play(true);
        m_changed();
    }

private:
    CHandle<IAnimation> m_animation;
    CHandle<ISysTimer> m_timer;
    std::function<void()> m_changed;
    int m_steps = 0;
};

class AnimationPage : public CardPage
{
public:
    explicit AnimationPage(ISysWindow& window)
        : CardPage(window), m_players{std::make_unique<Player>(gifSpinner, [this] { Repaint(); }),
                                      std::make_unique<Player>(gifLight, [this] { Repaint(); }),
                                      std::make_unique<Player>(gifStill, [this] { Repaint(); })}
    {
        const char* const titles[] = {"Eight frames of 90 ms", "Frames of 1.6 and 0.6 s", "A single frame"};
        for (std::size_t i = 0; i < std::size(m_players); ++i)
            m_cards.push_back({titles[i], [this, i](IPainter& painter, const Box& area, const Style& style) {
                                   DrawPlayer(painter, *m_players[i], area, style);
                               }});
    }

    void OnMousePress(CMouseEvent*) override
    {
        m_playing = !m_playing;
        for (const auto& player : m_players)
            player->Play(m_playing);
        Repaint();
    }

private:
    const std::vector<Card>& Cards() const override { return m_cards; }
    Status GetStatus() const override
    {
        return {m_playing ? "" : "Paused", "Click to stop and to go on; what was due meanwhile is left out."};
    }

    static void DrawPlayer(IPainter& painter, const Player& player, const Box& area, const Style& style)
    {
        IAnimation* const animation = player.Animation();
        if (!animation) {
            CenteredText(painter, area, "cannot be played here", style.muted);
            return;
        }
        const double line = LineHeight(painter);
        const Box stage{area.left, area.top, area.right, area.bottom - 3 * line - 12};
        const size<int> extent = animation->GetSize();
        for (const int side : {0, 1}) {
            const Box half = Row(stage, side, 2);
            if (side == 0)
                DrawChecks(painter, half);
            Frame(painter, half, style.line);
            animation->Draw(&painter, int(half.left + (half.Width() - extent.width) / 2),
                            int(half.top + (half.Height() - extent.height) / 2));
        }
        const int delay = animation->GetDelay();
        const std::string lines[] = {
            std::to_string(extent.width) + " x " + std::to_string(extent.height) + " pixels",
            delay < 0 ? "This frame is shown for ever."
                      : "Its next frame is due in " + std::to_string(delay) + " ms.",
            std::to_string(player.Steps()) + " steps so far",
        };
        double y = stage.bottom + 12;
        for (const std::string& text : lines) {
            Text(painter, area.left, y, text, style.muted);
            y += line;
        }
    }

    std::unique_ptr<Player> m_players[3];
    std::vector<Card> m_cards;
    bool m_playing = true;
};

} // namespace

std::unique_ptr<Page> CreateAnimationPage(ISysWindow& window)
{
    return std::make_unique<AnimationPage>(window);
}

} // namespace gallery
