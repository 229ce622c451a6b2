#include "picture_cards.h"

#include <cmath>

namespace gallery {

using namespace vela7;

namespace {

constexpr int kWidth = 112, kHeight = 84; // of the scene
constexpr int kTiles = 3;                 // a side of what is cut in pieces
constexpr int kStar = 72;                 // a side of what is masked
constexpr double kCaption = 14;
const screen_rectangle<int> kWhole;

void Caption(IPainter& painter, double x, double y, const std::string& text, const Style& style)
{
    painter.SetFont(UiFont(0, 0.8));
    Text(painter, x, y, text, style.muted);
    painter.SetFont(UiFont());
}

/// From n + 1 pixels on, CopyFrom takes one pixel more than asked for; pieces are asked for accordingly.
Picture Piece(const Picture& source, int left, int top, int width, int height)
{
    const size<int> whole = source->GetSize();
    const int right = left + width < whole.width ? left + width - 1 : left + width;
    const int bottom = top + height < whole.height ? top + height - 1 : top + height;
    Picture piece = MakePicture(1, 1);
    piece->CopyFrom(source.Get(), {left, top, right, bottom});
    return piece;
}

/// The middle of a picture that may be larger than its box.
void DrawClipped(IPainter& painter, const Picture& picture, const Box& box, RasterOperation op = roCopy)
{
    const ClipScope clip(painter, box);
    const size<int> extent = picture->GetSize();
    DrawPicture(painter, picture, std::floor(box.left + (box.Width() - extent.width) / 2),
                std::floor(box.top + (box.Height() - extent.height) / 2), op);
}

void PaintStar(IPainter& painter, double extent)
{
    Fill(painter, {0, 0, extent, extent}, clBlack);
    std::vector<point<double>> points;
    for (int i = 0; i < 10; ++i) {
        const double radius = extent / 2 * (i % 2 ? 0.45 : 0.98), angle = 3.14159265 * (i / 5.0 - 0.5);
        points.push_back({extent / 2 + radius * std::cos(angle), extent / 2 + radius * std::sin(angle)});
    }
    painter.SetPen({clWhite, 1, psSolid});
    painter.SetBrush({clWhite, bsSolid});
    painter.Polygon(points.data(), int(points.size()));
}

} // namespace

void DrawPicture(IPainter& painter, const Picture& picture, double x, double y, RasterOperation op)
{
    const size<int> extent = picture->GetSize();
    painter.DrawRasterPicture(picture.Get(), x, y, x + extent.width, y + extent.height, op);
}

PictureSet::PictureSet() : m_scene(MakeScene(kWidth, kHeight))
{
    m_plain = Piece(m_scene, 6, 6, kStar, kStar);
    m_mask = MakePicture(kStar, kStar, [](IPainter& painter) { PaintStar(painter, kStar); });
    m_masked = CopyOf(m_plain);
    m_masked->SetMask(m_mask.Get());

    const size<int> radii[] = {{2, 2}, {5, 5}, {6, 0}, {0, 6}};
    for (const size<int>& radius : radii) {
        m_blurred.push_back(CopyOf(m_scene));
        m_blurred.back()->Blur(radius, kWhole);
    }
    m_blurred.push_back(CopyOf(m_scene));
    m_blurred.back()->Blur({4, 4}, {30, 20, 82, 64});

    const size<int> sizes[] = {{28, 21}, {56, 42}, {112, 24}, {24, 84}, {100, 75}};
    for (const size<int>& extent : sizes) {
        m_scaled.push_back(CopyOf(m_scene));
        m_scaled.back()->Scale(extent.width, extent.height);
    }

    for (int i = 0; i < kTiles * kTiles; ++i) {
        const int width = kWidth / kTiles, height = kHeight / kTiles;
        m_pieces.push_back(Piece(m_scene, i % kTiles * width, i / kTiles * height, width, height));
    }

    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x) {
            m_fade.push_back(static_cast<unsigned char>(255 * x / (kWidth - 1)));
            const double distance = std::hypot(2.0 * x / kWidth - 1, 2.0 * y / kHeight - 1);
            const double hidden = std::clamp((distance - 0.45) / 0.55, 0.0, 1.0);
            m_vignette.push_back(static_cast<unsigned char>(255 * hidden));
        }
}

void PictureSet::DrawXPMs(IPainter& painter, const Box& area, const Style& style)
{
    const double foot = area.bottom - kCaption - 6;
    DrawChecks(painter, {area.left, area.top, area.right, area.bottom - kCaption});
    double x = area.left + 4;
    const struct
    {
        const char* name;
        double scale;
    } boats[] = {{"1", 1}, {"1.5", 1.5}, {"2", 2}, {"3", 3}, {"4", 4}};
    for (const auto& boat : boats) {
        const double extent = 20 * boat.scale;
        painter.DrawXPM(Boat(), x, foot - extent, 0, 0, -1, -1, boat.scale);
        Caption(painter, x, foot + 7, boat.name, style);
        x += extent + 5;
    }
}

/// The black parts of a mask are transparent.
void PictureSet::DrawMasks(IPainter& painter, const Box& area, const Style& style)
{
    const Picture* const pictures[] = {&m_plain, &m_mask, &m_masked};
    const char* const names[] = {"picture", "mask", "masked"};
    for (int i = 0; i < 3; ++i) {
        Box shown = Column(area, i, 3, 12);
        shown.bottom -= kCaption;
        if (i == 2)
            DrawChecks(painter, shown);
        DrawClipped(painter, *pictures[i], shown);
        Caption(painter, shown.left, shown.bottom + 1, names[i], style);
    }
}

void PictureSet::DrawConstantAlpha(IPainter& painter, const Box& area, const Style& style)
{
    (void)style;
    DrawChecks(painter, area);
    const int transparencies[] = {200, 140, 80, 0};
    for (int i = 0; i < 4; ++i) {
        const double x = area.left + i * (area.Width() - kWidth) / 3;
        const double y = area.top + i * (area.Height() - kHeight) / 3;
        painter.AlphaBlend(x, y, x + kWidth, y + kHeight, m_scene.Get(), transparencies[i]);
    }
}

void PictureSet::DrawPixelAlpha(IPainter& painter, const Box& area, const Style& style)
{
    (void)style;
    DrawChecks(painter, area);
    unsigned char* const alphas[] = {m_fade.data(), m_vignette.data()};
    for (int i = 0; i < 2; ++i) {
        const Box half = Column(area, i, 2);
        const double x = half.left + (half.Width() - kWidth) / 2,
                     y = half.top + (half.Height() - kHeight) / 2;
        painter.AlphaBlend(x, y, x + kWidth, y + kHeight, m_scene.Get(), alphas[i]);
    }
}

void PictureSet::DrawBlurs(IPainter& painter, const Box& area, const Style& style)
{
    const Picture* const pictures[] = {&m_scene,      &m_blurred[0], &m_blurred[1],
                                       &m_blurred[2], &m_blurred[3], &m_blurred[4]};
    const char* const names[] = {"original", "radius 2", "radius 5", "across", "down", "a part"};
    for (int i = 0; i < 6; ++i) {
        const Box cell = Cell(area, i, 3, 2, 6);
        const Box shown{cell.left, cell.top, cell.right, cell.bottom - kCaption};
        DrawClipped(painter, *pictures[i], shown);
        Caption(painter, cell.left, shown.bottom + 1, names[i], style);
    }
}

void PictureSet::DrawScaled(IPainter& painter, const Box& area, const Style& style)
{
    (void)style;
    double x = area.left;
    const double places[][2] = {{0, 0}, {0, 28}, {0, 78}, {122, 0}, {154, 0}};
    for (std::size_t i = 0; i < m_scaled.size(); ++i)
        DrawPicture(painter, m_scaled[i], x + places[i][0], area.top + places[i][1]);
}

void PictureSet::DrawPieces(IPainter& painter, const Box& area, const Style& style)
{
    const double gapX = 8, gapY = 6;
    const double tileWidth = kWidth / kTiles, tileHeight = kHeight / kTiles;
    const double left = area.left + (area.Width() - kTiles * tileWidth - (kTiles - 1) * gapX) / 2;
    const double top = area.top + (area.Height() - kTiles * tileHeight - (kTiles - 1) * gapY) / 2;
    for (int i = 0; i < kTiles * kTiles; ++i) {
        const double x = left + i % kTiles * (tileWidth + gapX), y = top + i / kTiles * (tileHeight + gapY);
        Frame(painter, {x - 2, y - 2, x + tileWidth + 2, y + tileHeight + 2}, style.line);
        DrawPicture(painter, m_pieces[std::size_t(i)], x, y);
    }
}

/// The scene on stripes of two colours.
void PictureSet::DrawOperations(IPainter& painter, const Box& area, const Style& style)
{
    const struct
    {
        const char* name;
        RasterOperation op;
    } cells[] = {
        {"and", roAnd},  {"or", roOr}, {"xor", roXor}, {"equiv", roEquiv}, {"invert source", roSrcInvert},
        {"nand", roNand}};
    for (int i = 0; i < 6; ++i) {
        const Box cell = Cell(area, i, 3, 2, 6);
        const Box shown{cell.left, cell.top, cell.right, cell.bottom - kCaption};
        Fill(painter, shown, clWhite);
        Fill(painter, {shown.left, shown.top, shown.left + shown.Width() / 2, shown.bottom}, clSea);
        DrawClipped(painter, m_scene, shown, cells[i].op);
        Caption(painter, cell.left, shown.bottom + 1, cells[i].name, style);
    }
}

} // namespace gallery
