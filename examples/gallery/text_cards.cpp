#include "text_cards.h"

namespace gallery {

using namespace vela7;

void DrawFamilies(IPainter& painter, const Box& area, const Style& style)
{
    const struct
    {
        const char* name;
        int family;
    } rows[] = {{"swiss", ffSwiss},
                {"roman", ffRoman},
                {"modern", ffModern},
                {"decorative", ffDecorative},
                {"default", ffDefault}};
    const double left = area.left + painter.GetTextSize("decorative").width + 16;
    for (int i = 0; i < 5; ++i) {
        const Box row = Row(area, i, 5, 0);
        painter.SetFont(UiFont());
        painter.SetTextColor(style.muted);
        painter.DrawStringEx(rows[i].name, row, tfSingleLine | tfVCenter);
        font f = UiFont(0, 1.2);
        f.face.clear(); // a face would count more than the family
        f.family = rows[i].family;
        painter.SetFont(f);
        painter.SetTextColor(style.text);
        painter.DrawStringEx("Brown fox 123", {left, row.top, area.right, row.bottom},
                             tfSingleLine | tfVCenter | tfEndEllipsis);
    }
}

/// On one common baseline.
void DrawSizes(IPainter& painter, const Box& area, const Style& style)
{
    const auto draw = [&](double x, double baseline, const std::string& text) {
        fontmetrics metrics;
        painter.GetFontMetrics(&metrics);
        Text(painter, x, baseline - (metrics.height - metrics.descent), text, style.text);
        return x + painter.GetTextSize(text).width + 8;
    };
    const double baseline = area.top + area.Height() * 0.45;
    double x = area.left;
    for (const int points : {7, 9, 12, 16, 22, 30}) {
        font f = UiFont();
        f.size = points;
        painter.SetFont(f);
        x = draw(x, baseline, std::to_string(points));
    }
    HLine(painter, area.left, area.right, baseline, style.line);

    const double second = area.top + area.Height() * 0.9;
    x = area.left;
    for (const int percent : {50, 75, 100, 150, 200}) {
        painter.SetFont(UiFont(0, percent / 100.0));
        x = draw(x, second, std::to_string(percent) + "%");
    }
    HLine(painter, area.left, area.right, second, style.line);
}

void DrawStyles(IPainter& painter, const Box& area, const Style& style)
{
    const struct
    {
        const char* text;
        unsigned style;
    } samples[] = {{"regular", 0},
                   {"bold", fsBold},
                   {"italic", fsItalic},
                   {"bold italic", fsBold | fsItalic},
                   {"underlined", fsUnderline},
                   {"struck out", fsStrikeOut},
                   {"both lines", fsUnderline | fsStrikeOut}};
    for (int i = 0; i < 7; ++i) {
        painter.SetFont(UiFont(samples[i].style, 1.1));
        const Box cell = Cell(area, i, 2, 4, 4);
        painter.SetTextColor(style.text);
        painter.DrawStringEx(samples[i].text, cell, tfSingleLine | tfVCenter);
    }
    painter.SetFont(UiFont(0, 1.1));
    painter.SetBkMode(bkOpaque);
    painter.SetBkColor(style.accent);
    painter.SetTextColor(style.accentText);
    painter.DrawStringEx(" opaque ", Cell(area, 7, 2, 4, 4), tfSingleLine | tfVCenter);
    painter.SetBkMode(bkTransparent);
}

void DrawRotated(IPainter& painter, const Box& area, const Style& style)
{
    const Box wheel = Square(Column(area, 0, 2));
    const double x = (wheel.left + wheel.right) / 2, y = (wheel.top + wheel.bottom) / 2;
    constexpr int spokes = 10;
    for (int i = 0; i < spokes; ++i) {
        font f = UiFont();
        f.angle = 3600 / spokes * i;
        painter.SetFont(f);
        Text(painter, x, y, "    turned", Mix(clSea, clRose, double(i) / (spokes - 1)));
    }

    // Headings that lean over the columns of a table.
    const Box table = Column(area, 1, 2);
    const double bottom = table.top + table.Height() * 0.66, column = table.Width() / 5;
    const char* const headings[] = {"first", "second", "third", "fourth"};
    for (int i = 0; i < 4; ++i) {
        font f = UiFont();
        f.angle = 600;
        painter.SetFont(f);
        const double left = table.left + i * column;
        Text(painter, left + column * 0.15, bottom - 12, headings[i], style.text);
        const Box below{left, bottom + 6, left + column - 3, table.bottom};
        Fill(painter, below, Mix(clSea, clRose, i / 3.0));
    }
}

void DrawAligned(IPainter& painter, const Box& area, const Style& style)
{
    const unsigned across[] = {tfLeft, tfHCenter, tfRight}, down[] = {tfTop, tfVCenter, tfBottom};
    const char* const first[] = {"top", "center", "bottom"};
    const char* const second[] = {"left", "center", "right"};
    painter.SetFont(UiFont(0, 0.9));
    for (int i = 0; i < 9; ++i) {
        const Box cell = Cell(area, i, 3, 3, 6);
        Fill(painter, cell, Mix(style.window, clSea, 0.12));
        const bool middle = i == 4;
        const std::string text = middle ? "center" : std::string(first[i / 3]) + "\n" + second[i % 3];
        painter.SetTextColor(style.text);
        const Box inner{cell.left + 4, cell.top + 1, cell.right - 4, cell.bottom - 1};
        painter.DrawStringEx(text, inner, across[i % 3] | down[i / 3]);
    }
}

/// One line, cut more and more.
void DrawEllipsis(IPainter& painter, const Box& area, const Style& style)
{
    const std::string text = "A long line that ends in dots";
    const double shares[] = {1, 0.75, 0.5, 0.3, 0.15};
    for (int i = 0; i < 5; ++i) {
        Box row = Row(area, i, 5, 5);
        row.right = row.left + row.Width() * shares[i];
        Fill(painter, row, Mix(style.window, clLeaf, 0.18));
        painter.SetTextColor(style.text);
        painter.DrawStringEx(text, {row.left + 4, row.top, row.right - 4, row.bottom},
                             tfSingleLine | tfVCenter | tfEndEllipsis);
    }
}

/// The box that a text takes, its baseline, and what the font says of itself.
void DrawMeasured(IPainter& painter, const Box& area, const Style& style)
{
    const std::string text = "Typography";
    painter.SetFont(UiFont(0, 2.4));
    const size<double> extent = painter.GetTextSize(text);
    fontmetrics metrics;
    painter.GetFontMetrics(&metrics);
    const Box box{area.left, area.top, area.left + extent.width, area.top + extent.height};
    Fill(painter, box, Mix(style.window, clAmber, 0.2));
    Text(painter, box.left, box.top, text, style.text);
    HLine(painter, box.left, area.right, box.bottom - metrics.descent, clRose);
    Frame(painter, box, clAmber);

    painter.SetFont(UiFont(0, 0.9));
    const double line = LineHeight(painter) + 1;
    const auto number = [](double value) { return std::to_string(int(value)); };
    const struct
    {
        _color color;
        std::string text;
    } rows[] = {{clAmber, "text size " + number(extent.width) + " x " + number(extent.height)},
                {clRose, "baseline, descent " + number(metrics.descent)},
                {clSlate, "height " + number(metrics.height) + ", leading " +
                              number(metrics.externalLeading) + ", average width " +
                              number(metrics.averageWidth)}};
    double y = area.bottom - 3 * line;
    for (const auto& row : rows) {
        Fill(painter, {area.left, y + line / 2 - 4, area.left + 8, y + line / 2 + 4}, row.color);
        Text(painter, area.left + 14, y, row.text, style.muted);
        y += line;
    }
}

} // namespace gallery
