#include "shape_cards.h"

#include <cmath>

namespace gallery {

using namespace vela7;

namespace {

constexpr double kPi = 3.14159265358979323846;

/// A fan of thin lines, one line of each width, and a pattern of single pixels.
void DrawLines(IPainter& painter, const Box& area, const Style&)
{
    const Box fan = Column(area, 0, 3), widths = Column(area, 1, 3), pixels = Square(Column(area, 2, 3));
    const int rays = 14;
    for (int i = 0; i <= rays; ++i) {
        const double angle = kPi / 2 * i / rays;
        painter.SetPen({Mix(clSea, clRose, double(i) / rays), 1, psSolid});
        Line(painter, fan.left, fan.bottom, fan.left + fan.Width() * std::cos(angle),
             fan.bottom - fan.Height() * std::sin(angle));
    }
    for (int width = 1; width <= 6; ++width) {
        const double y = widths.top + widths.Height() * (width - 0.5) / 6;
        painter.SetPen({clSea, width, psSolid});
        Line(painter, widths.left, y, widths.right, y);
    }
    // The seeds of a sunflower.
    const double radius = pixels.Width() / 2;
    for (int i = 0; i < 500; ++i) {
        const double distance = radius * std::sqrt(i / 500.0), angle = 2.39996 * i;
        painter.SetPixel(pixels.left + radius + distance * std::cos(angle),
                         pixels.top + radius + distance * std::sin(angle), Mix(clAmber, clPlum, i / 500.0));
    }
}

/// Each pen style, one and three pixels wide.
void DrawPens(IPainter& painter, const Box& area, const Style& style)
{
    const char* const names[] = {"none", "solid", "dash", "dot", "dash dot", "dash dot dot", "alternate"};
    const double row = area.Height() / 7, text = LineHeight(painter);
    const double left = area.left + painter.GetTextSize("dash dot dot").width + 20;
    for (int i = psNone; i <= psAlternate; ++i) {
        const double top = area.top + i * row, y = top + row / 2;
        Text(painter, area.left, y - text / 2, names[i], style.muted);
        painter.SetPen({clLeaf, 1, i});
        Line(painter, left, y - 4, area.right, y - 4);
        painter.SetPen({clLeaf, 3, i});
        Line(painter, left, y + 3, area.right, y + 3);
    }
}

/// Each brush style as a swatch.
void DrawBrushes(IPainter& painter, const Box& area, const Style& style)
{
    const char* const names[] = {"none",  "solid",   "horiz.",  "vertical",
                                 "cross", "b-diag.", "f-diag.", "x-diag."};
    const double text = LineHeight(painter), rowHeight = area.Height() / 2;
    painter.SetFont(UiFont(0, 0.8));
    for (int i = bsNone; i <= bsDiagonalCross; ++i) {
        const Box cell = Column(area, i % 4, 4, 12);
        const double top = area.top + (i / 4) * rowHeight;
        painter.SetPen({style.line, 1, psSolid});
        painter.SetBrush({clPlum, i});
        painter.Rectangle(cell.left, top, cell.right, top + rowHeight - text - 8);
        Text(painter, cell.left, top + rowHeight - text - 5, names[i], style.muted);
    }
    painter.SetFont(UiFont());
}

/// Outline only, fill only, both, round, and the rectangle that marks the focus.
void DrawRectangles(IPainter& painter, const Box& area, const Style&)
{
    const double half = (area.Height() - 12) / 2;
    const auto cell = [&](int column, int row) {
        Box c = Column(area, column, 3, 12);
        c.top += row * (half + 12);
        c.bottom = c.top + half;
        return c;
    };
    painter.SetPen({clSea, 1, psSolid});
    painter.SetBrush({clSea, bsNone});
    painter.Rectangle(cell(0, 0));

    Fill(painter, cell(1, 0), clSea);

    painter.SetPen({clSea, 3, psSolid});
    painter.SetBrush({Mix(clWhite, clSea, 0.3), bsSolid});
    painter.Rectangle(Shrunk(cell(2, 0), 1));

    const Box round = cell(0, 1), pill = cell(1, 1), focus = cell(2, 1);
    painter.SetPen({clAmber, 1, psSolid});
    painter.SetBrush({Mix(clWhite, clAmber, 0.3), bsSolid});
    painter.RoundRect(round.left, round.top, round.right, round.bottom, 10, 10);
    painter.SetBrush({clAmber, bsSolid});
    painter.RoundRect(pill.left, pill.top, pill.right, pill.bottom, half / 2 - 1, half / 2 - 1);
    painter.FocusRect(focus.left, focus.top, focus.right, focus.bottom);
    painter.FocusRect(focus.left + 5, focus.top + 5, focus.right - 5, focus.bottom - 5);
}

/// Nested ellipses, a chart of pies, a chord, and arcs.
void DrawCurves(IPainter& painter, const Box& area, const Style&)
{
    const auto cell = [&area](int index) { return Square(Column(area, index, 4, 10)); };
    const Box ellipses = cell(0), chart = cell(1), chord = cell(2), arcs = cell(3);
    const double radius = ellipses.Width() / 2;
    for (int i = 0; i < 4; ++i) {
        painter.SetPen({clSea, 1, psSolid});
        painter.SetBrush({Mix(clWhite, clSea, 0.2 + 0.2 * i), bsSolid});
        const double inset = radius * i / 4.5;
        painter.Ellipse(ellipses.left + inset, ellipses.top + inset / 3, ellipses.right - inset,
                        ellipses.bottom - inset / 3);
    }
    const int tenths[] = {0, 1300, 2100, 2900, 3600};
    const _color colors[] = {clSea, clAmber, clLeaf, clPlum};
    for (int i = 0; i < 4; ++i) {
        painter.SetPen({clWhite, 1, psSolid});
        painter.SetBrush({colors[i], bsSolid});
        painter.Pie(chart.left, chart.top, chart.right, chart.bottom, tenths[i], tenths[i + 1]);
    }
    painter.SetPen({clLeaf, 2, psSolid});
    painter.SetBrush({Mix(clWhite, clLeaf, 0.35), bsSolid});
    painter.Chord(chord.left, chord.top, chord.right, chord.bottom, 450, 3150);
    for (int i = 0; i < 4; ++i) {
        const Box ring = Shrunk(arcs, 3 + radius * i / 4.5);
        painter.SetPen({Mix(clRose, clAmber, i / 3.0), 3, psSolid});
        painter.Arc(ring.left, ring.top, ring.right, ring.bottom, 450 * i, 450 * i + 2700);
    }
}

/// A zigzag, a hexagon, and a star whose middle the even-odd rule leaves out.
void DrawPolygons(IPainter& painter, const Box& area, const Style&)
{
    const Box zigzag = Column(area, 0, 3), hexagon = Square(Column(area, 1, 3)),
              star = Square(Column(area, 2, 3));
    std::vector<point<double>> points;
    for (int i = 0; i <= 8; ++i)
        points.push_back(
            {zigzag.left + zigzag.Width() * i / 8, i % 2 ? zigzag.top + 4 * i : zigzag.bottom - 4 * i});
    painter.SetPen({clRose, 2, psSolid});
    painter.PolyLine(points.data(), int(points.size()));

    const auto corners = [&points](const Box& box, int count, int step, double turn) {
        points.clear();
        const double radius = box.Width() / 2;
        for (int i = 0; i < count; ++i) {
            const double angle = turn + 2 * kPi * i * step / count;
            points.push_back(
                {box.left + radius * (1 + std::cos(angle)), box.top + radius * (1 + std::sin(angle))});
        }
    };
    corners(hexagon, 6, 1, 0);
    painter.SetPen({clLeaf, 2, psSolid});
    painter.SetBrush({Mix(clWhite, clLeaf, 0.35), bsSolid});
    painter.Polygon(points.data(), int(points.size()));

    corners(star, 5, 2, -kPi / 2);
    painter.SetPen({clAmber, 1, psSolid});
    painter.SetBrush({clAmber, bsSolid});
    painter.Polygon(points.data(), int(points.size()));
}

/// Splines along waves of points, which are marked.
void DrawSplines(IPainter& painter, const Box& area, const Style& style)
{
    const _color colors[] = {clSea, clPlum, clRose};
    for (int wave = 0; wave < 3; ++wave) {
        std::vector<point<double>> points;
        for (int i = 0; i <= 10; ++i) {
            const double swing = std::sin(kPi * i / 2.5 + wave * 2.1) * (0.38 - 0.1 * wave);
            points.push_back(
                {area.left + 4 + (area.Width() - 8) * i / 10, area.top + area.Height() * (0.5 + swing)});
        }
        painter.SetPen({colors[wave], 2, psSolid});
        painter.PolyBezier(points.data(), int(points.size()));
        painter.SetPen({colors[wave], 1, psSolid});
        painter.SetBrush({style.window, bsSolid});
        for (const point<double>& p : points)
            painter.Ellipse(p.x - 3, p.y - 3, p.x + 3, p.y + 3);
    }
}

void DrawGradients(IPainter& painter, const Box& area, const Style& style)
{
    const double half = (area.Height() - 12) / 2;
    painter.GradientH(area.left, area.top, area.right, area.top + half, clSea, clPlum);
    const Box below{area.left, area.bottom - half, area.right, area.bottom};
    const _color colors[] = {clLeaf, clAmber, clRose, clSlate};
    for (int i = 0; i < 4; ++i) {
        const Box b = Column(below, i, 4, 12);
        painter.GradientV(b.left, b.top, b.right, b.bottom, colors[i], Mix(style.window, colors[i], 0.15));
    }
}

/// Each raster operation: a bar in amber on the colours of a strip.
void DrawRasterOperations(IPainter& painter, const Box& area, const Style& style)
{
    // clang-format off
    const char* const names[] = {
        "copy",       "or",         "xor",     "andInvert",
        "srcInvert",  "orInvert",   "equiv",   "and",
        "invert",     "clear",      "set",     "noOp",
        "andReverse", "orReverse",  "nand",    "nor"};
    // clang-format on
    const _color strip[] = {clBlack, clSea, clRose, clWhite};
    painter.SetFont(UiFont(0, 0.7));
    const double text = LineHeight(painter);
    for (int op = roCopy; op <= roNor; ++op) {
        Box cell = Cell(area, op, 4, 4, 8);
        Text(painter, cell.left, cell.bottom - text + 4, names[op], style.muted);
        cell.bottom -= text - 3;
        for (int i = 0; i < 4; ++i)
            Fill(painter, Column(cell, i, 4, 0), strip[i]);
        painter.SetRasterOperation(RasterOperation(op));
        Fill(painter, {cell.left + 5, cell.top + 4, cell.right - 5, cell.bottom - 4}, clAmber);
        painter.SetRasterOperation(roCopy);
        Frame(painter, cell, style.line);
    }
}

} // namespace

const std::vector<Card>& ShapeCards()
{
    // clang-format off
    static const std::vector<Card> cards{
        {"Lines, pixels",               &DrawLines},
        {"Pens",                        &DrawPens},
        {"Brushes",                     &DrawBrushes},
        {"Rectangles",                  &DrawRectangles},
        {"Ellipses, pies, chord, arcs", &DrawCurves},
        {"Polylines, polygons",         &DrawPolygons},
        {"Splines",                     &DrawSplines},
        {"Gradients",                   &DrawGradients},
        {"Raster operations",           &DrawRasterOperations},
    };
    // clang-format on
    return cards;
}

} // namespace gallery
