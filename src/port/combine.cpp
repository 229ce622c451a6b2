#include "port/combine.h"

#include <wx/version.h>

#if wxCHECK_VERSION(3, 2, 0) // before, X itself does it

#include "port/gtk.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>

namespace vela7 {
namespace gtkport {

namespace {

using Word = std::uint32_t; // four bytes; none of the operations carries from one to the next
using Surface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;
using Context = std::unique_ptr<cairo_t, decltype(&cairo_destroy)>;

struct OperationRow
{
    wxRasterOperationMode op;
    Word (*combine)(Word source, Word target);
};

// clang-format off
constexpr OperationRow operations[] = {
    {wxCLEAR,       [](Word, Word)     { return Word{0}; }},
    {wxXOR,         [](Word s, Word t) { return s ^ t; }},
    {wxINVERT,      [](Word, Word t)   { return ~t; }},
    {wxOR_REVERSE,  [](Word s, Word t) { return s | ~t; }},
    {wxAND_REVERSE, [](Word s, Word t) { return s & ~t; }},
    {wxCOPY,        [](Word s, Word)   { return s; }},
    {wxAND,         [](Word s, Word t) { return s & t; }},
    {wxAND_INVERT,  [](Word s, Word t) { return ~s & t; }},
    {wxNO_OP,       [](Word, Word t)   { return t; }},
    {wxNOR,         [](Word s, Word t) { return ~s & ~t; }},
    {wxEQUIV,       [](Word s, Word t) { return ~s ^ t; }},
    {wxSRC_INVERT,  [](Word s, Word)   { return ~s; }},
    {wxOR_INVERT,   [](Word s, Word t) { return ~s | t; }},
    {wxNAND,        [](Word s, Word t) { return ~s | ~t; }},
    {wxOR,          [](Word s, Word t) { return s | t; }},
    {wxSET,         [](Word, Word)     { return ~Word{0}; }},
};
// clang-format on

constexpr Word opaque = 0xff000000;

Word* Row(cairo_surface_t* image, int row)
{
    return reinterpret_cast<Word*>(cairo_image_surface_get_data(image) +
                                   static_cast<std::ptrdiff_t>(row) * cairo_image_surface_get_stride(image));
}

// Leaves the result in the target's copy, transparent where nothing was drawn.
void CombinePixels(cairo_surface_t* shape, cairo_surface_t* copy, Word (*combine)(Word, Word))
{
    cairo_surface_flush(shape);
    cairo_surface_flush(copy);
    const int width = cairo_image_surface_get_width(shape), height = cairo_image_surface_get_height(shape);
    for (int row = 0; row < height; ++row) {
        const Word* const source = Row(shape, row);
        Word* const target = Row(copy, row);
        for (int column = 0; column < width; ++column)
            target[column] = source[column] & opaque ? combine(source[column], target[column]) | opaque : 0;
    }
    cairo_surface_mark_dirty(copy);
}

// What of an area the clipping leaves.
wxRect Clipped(cairo_t* cr, const wxRect& area)
{
    double left = 0, top = 0, right = 0, bottom = 0;
    cairo_clip_extents(cr, &left, &top, &right, &bottom);
    const wxPoint first(static_cast<int>(std::floor(left)), static_cast<int>(std::floor(top)));
    const wxPoint end(static_cast<int>(std::ceil(right)), static_cast<int>(std::ceil(bottom)));
    return area.Intersect(wxRect(first, wxSize(end.x - first.x, end.y - first.y)));
}

} // namespace

void Combine(cairo_t* target, wxRect area, wxRasterOperationMode op,
             const std::function<void(cairo_t*)>& draw)
{
    area = Clipped(target, area);
    if (area.IsEmpty())
        return;
    // The scale of a picture is in the matrix, that of a window in its surface.
    cairo_surface_t* const pixels = cairo_get_group_target(target);
    double scaleX = 1, scaleY = 1, x = area.x, y = area.y, endX = area.x + area.width,
           endY = area.y + area.height;
    cairo_surface_get_device_scale(pixels, &scaleX, &scaleY);
    cairo_user_to_device(target, &x, &y);
    cairo_user_to_device(target, &endX, &endY);
    const double left = std::min(x, endX), top = std::min(y, endY); // a mirrored window counts to the left
    const int width = static_cast<int>(std::lround(std::fabs(endX - x) * scaleX));
    const int height = static_cast<int>(std::lround(std::fabs(endY - y) * scaleY));

    const auto make = [&] {
        cairo_surface_t* const image = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
        cairo_surface_set_device_scale(image, scaleX, scaleY);
        return Surface(image, &cairo_surface_destroy);
    };
    const Surface shape = make(), result = make();
    {
        const Context context(cairo_create(shape.get()), &cairo_destroy);
        cairo_matrix_t matrix;
        cairo_get_matrix(target, &matrix);
        matrix.x0 -= left;
        matrix.y0 -= top;
        cairo_set_matrix(context.get(), &matrix);
        cairo_set_antialias(context.get(), CAIRO_ANTIALIAS_NONE);
        draw(context.get());
    }
    {
        const Context context(cairo_create(result.get()), &cairo_destroy);
        cairo_set_source_surface(context.get(), pixels, -left, -top);
        cairo_pattern_set_filter(cairo_get_source(context.get()), CAIRO_FILTER_NEAREST);
        cairo_set_operator(context.get(), CAIRO_OPERATOR_SOURCE);
        cairo_paint(context.get());
    }
    for (const OperationRow& row : operations)
        if (row.op == op)
            CombinePixels(shape.get(), result.get(), row.combine);
    cairo_save(target);
    cairo_identity_matrix(target);
    cairo_set_source_surface(target, result.get(), left, top);
    cairo_pattern_set_filter(cairo_get_source(target), CAIRO_FILTER_NEAREST);
    cairo_set_operator(target, CAIRO_OPERATOR_OVER);
    cairo_paint(target);
    cairo_restore(target);
}

} // namespace gtkport
} // namespace vela7

#endif
