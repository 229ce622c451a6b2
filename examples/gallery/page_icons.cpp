/// Image lists: icons in their looks, at the scales of common screens.

#include "cards.h"
#include "icons.h"
#include "scene.h"

#include "vela7/system.h"

#include <cmath>

namespace gallery {

using namespace vela7;

namespace {

using Drawing = void (IImageList::*)(IPainter*, int, int, int, int, int);

constexpr double kScales[] = {1.0, 1.5, 2.0};
constexpr int kPictures = 3;
constexpr _color kMask{255, 0, 255};

/// Icons that a painter made, on the colour that is their mask.
void PaintIcon(IPainter& painter, int number)
{
    Fill(painter, {0, 0, kIconSide, kIconSide}, kMask);
    painter.SetPen({clSlate, 1, psSolid});
    painter.SetBrush({number == 0 ? clSea : number == 1 ? clAmber : clPlum, bsSolid});
    const point<double> diamond[] = {{8, 1}, {14, 8}, {8, 14}, {1, 8}};
    if (number == 0)
        painter.Ellipse(1, 1, 15, 15);
    else if (number == 1)
        painter.Polygon(diamond, 4);
    else
        painter.RoundRect(1, 3, 15, 13, 4, 4);
}

class IconsPage : public CardPage
{
public:
    explicit IconsPage(ISysWindow& window);

private:
    const std::vector<Card>& Cards() const override { return m_cards; }
    Status GetStatus() const override
    {
        return {"",
                m_icons ? "Point at an icon: it shows its normal look." : "This system has no image lists."};
    }
    void AddCard(const char* title, const CHandle<IImageList>& list, Drawing drawing);
    void DrawScales(IPainter& painter, const Box& area, const Style& style, IImageList& list,
                    Drawing drawing);
    void DrawStretched(IPainter& painter, const Box& area, const Style& style);
    /// Points at it: then it is drawn as if it were enabled.
    Drawing LiveLook(const Box& icon, Drawing drawing) const
    {
        const bool inside = IsMouseInside() && icon.Contains(point<double>(Mouse().x, Mouse().y));
        return inside ? &IImageList::DrawTransparent : drawing;
    }

    CHandle<IImageList> m_icons, m_outlined, m_painted;
    std::vector<Card> m_cards;
};

IconsPage::IconsPage(ISysWindow& window)
    : CardPage(window), m_icons(MakeIcons(false)), m_outlined(MakeIcons(true))
{
    if (!m_icons)
        return;
    m_painted = GetCurrentSystem()->CreateImageList();
    for (int i = 0; i < kPictures; ++i) {
        const Picture picture =
            MakePicture(kIconSide, kIconSide, [i](IPainter& painter) { PaintIcon(painter, i); });
        m_painted->AddRasterPicture(picture.Get(), kMask);
        m_painted->AddRasterPicture(picture.Get(), _color::none());
    }
    AddCard("Transparent", m_icons, &IImageList::DrawTransparent);
    AddCard("Disabled, made by the list", m_icons, &IImageList::DrawDisabled);
    AddCard("Disabled, a look of their own", m_outlined, &IImageList::DrawDisabled);
    AddCard("Normal: the mask is drawn as well", m_icons, &IImageList::Draw);
    AddCard("From pictures, masked or not", m_painted, &IImageList::DrawTransparent);
    m_cards.push_back({"Stretched", [this](IPainter& painter, const Box& area, const Style& style) {
                           DrawStretched(painter, area, style);
                       }});
}

void IconsPage::AddCard(const char* title, const CHandle<IImageList>& list, Drawing drawing)
{
    m_cards.push_back({title, [this, list, drawing](IPainter& painter, const Box& area, const Style& style) {
                           DrawScales(painter, area, style, *list, drawing);
                       }});
}

void IconsPage::DrawScales(IPainter& painter, const Box& area, const Style& style, IImageList& list,
                           Drawing drawing)
{
    const double label = painter.GetTextSize("0.0").width + 12, line = LineHeight(painter);
    const Box ground{area.left + label, area.top, area.right, area.bottom};
    DrawChecks(painter, ground);
    Frame(painter, ground, style.line);
    double top = area.top;
    for (const double scale : kScales) { // rows as high as what is in them
        const double height = std::floor(area.Height() * (scale + 1) / 7.5);
        const int side = int(kIconSide * scale), count = list.GetImageCount();
        const int y = int(top + (height - side) / 2);
        Text(painter, area.left, std::floor(top + (height - line) / 2),
             scale == 1.0   ? "1.0"
             : scale == 1.5 ? "1.5"
                            : "2.0",
             style.muted);
        for (int i = 0; i < count; ++i) {
            const Box cell = Column(ground, i, count, 0);
            const int x = int(cell.left + (cell.Width() - side) / 2);
            const Drawing look = LiveLook(Box(x, y, x + side, y + side), drawing);
            (list.*look)(&painter, i, x, y, side, side);
        }
        top += height;
    }
}

void IconsPage::DrawStretched(IPainter& painter, const Box& area, const Style& style)
{
    DrawChecks(painter, area);
    Frame(painter, area, style.line);
    const size<int> extents[] = {{64, 16}, {16, 64}, {64, 64}, {40, 24}, {24, 40}, {56, 28}};
    for (int i = 0; i < kIcons; ++i) {
        const Box cell = Cell(area, i, 3, 2, 0);
        const int x = int(cell.left + (cell.Width() - extents[i].width) / 2);
        const int y = int(cell.top + (cell.Height() - extents[i].height) / 2);
        const Box box = Box(x, y, x + extents[i].width, y + extents[i].height);
        const Drawing drawing = i % 2 ? &IImageList::DrawDisabled : &IImageList::DrawTransparent;
        ((*m_icons).*LiveLook(box, drawing))(&painter, i, x, y, extents[i].width, extents[i].height);
    }
}

} // namespace

std::unique_ptr<Page> CreateIconsPage(ISysWindow& window)
{
    return std::make_unique<IconsPage>(window);
}

} // namespace gallery
