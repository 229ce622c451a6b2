/// Raster pictures: what can be done to them, and how they are drawn; a magnifier follows the mouse.

#include "picture_cards.h"

#include <cmath>

namespace gallery {

using namespace vela7;

namespace {

constexpr int kZoom = 4;

class PicturesPage : public CardPage
{
public:
    explicit PicturesPage(ISysWindow& window)
        : CardPage(window), m_cards{{"XPM, at scales", Drawing(&PictureSet::DrawXPMs)},
                                    {"Masks", Drawing(&PictureSet::DrawMasks)},
                                    {"Constant alpha", Drawing(&PictureSet::DrawConstantAlpha)},
                                    {"Alpha of each pixel", Drawing(&PictureSet::DrawPixelAlpha)},
                                    {"Blur", Drawing(&PictureSet::DrawBlurs)},
                                    {"Scaled", Drawing(&PictureSet::DrawScaled)},
                                    {"Cut in pieces", Drawing(&PictureSet::DrawPieces)},
                                    {"Raster operations", Drawing(&PictureSet::DrawOperations)},
                                    {"Extracted at the mouse",
                                     [this](IPainter& p, const Box& area, const Style& style) {
                                         DrawMagnifier(p, area, style);
                                     }}}
    {
        window.SetCursor(crCross);
    }

    point<double> SamplePlace() const override { return {0.886, 0.24}; } // on a boat

private:
    using Method = void (PictureSet::*)(IPainter&, const Box&, const Style&);

    std::function<void(IPainter&, const Box&, const Style&)> Drawing(Method method)
    {
        return [this, method](IPainter& painter, const Box& area, const Style& style) {
            (m_pictures.*method)(painter, area, style);
        };
    }
    const std::vector<Card>& Cards() const override { return m_cards; }
    Status GetStatus() const override
    {
        return {"", "Move the mouse over the pictures: the last card enlarges what is there."};
    }
    void DrawMagnifier(IPainter& painter, const Box& area, const Style& style);
    void DrawOverlay(IPainter& painter, const Box& client, const Style& style) override;

    PictureSet m_pictures;
    std::vector<Card> m_cards;
    Box m_source; // in the window; empty when nothing is magnified
};

/// The last card: by then all that can be extracted has been drawn.
void PicturesPage::DrawMagnifier(IPainter& painter, const Box& area, const Style& style)
{
    m_source = Box();
    const int width = int(area.Width() / kZoom), height = int(area.Height() / kZoom);
    const Box client = ClientBox(Window());
    if (!IsMouseInside() || width <= 0 || height <= 0 || client.Width() < width || client.Height() < height) {
        CenteredText(painter, area, "the mouse is elsewhere", style.muted);
        return;
    }
    const double left = std::clamp(double(Mouse().x - width / 2), client.left, client.right - width);
    const double top = std::clamp(double(Mouse().y - height / 2), client.top, client.bottom - height);
    m_source = {left, top, left + width, top + height};
    const Picture picture = MakePicture(width, height);
    painter.ExtractRasterPicture(picture.Get(), m_source.left, m_source.top, m_source.right, m_source.bottom);
    picture->Scale(width * kZoom, height * kZoom);
    DrawPicture(painter, picture, area.left, area.top);
    Frame(painter, {area.left, area.top, area.left + width * kZoom, area.top + height * kZoom}, clRose);
}

void PicturesPage::DrawOverlay(IPainter& painter, const Box&, const Style&)
{
    if (!m_source.IsEmpty())
        Frame(painter, Shrunk(m_source, -1), clRose);
}

} // namespace

std::unique_ptr<Page> CreatePicturesPage(ISysWindow& window)
{
    return std::make_unique<PicturesPage>(window);
}

} // namespace gallery
