/// What drawing on Cairo has in common. For the files of this room, on GTK 3.
#pragma once

#include "port/combine.h"
#include "port/gtk.h"

#include <wx/dc.h>
#include <wx/graphics.h>

namespace vela7 {
namespace gtkport {

inline cairo_t* CairoOf(const wxDC& dc)
{
    wxGraphicsContext* const context = dc.GetGraphicsContext();
    return context ? static_cast<cairo_t*>(context->GetNativeContext()) : nullptr;
}

// Shapes are drawn without anti-aliasing. For a scope, since text goes on with what it had.
class CSharp
{
public:
    explicit CSharp(cairo_t* cr)
        : m_cr(cr), m_before(cairo_get_antialias(cr)), m_operator(cairo_get_operator(cr))
    {
        cairo_set_antialias(cr, CAIRO_ANTIALIAS_NONE);
        cairo_set_operator(cr, CAIRO_OPERATOR_OVER);
        cairo_new_path(cr);
    }
    ~CSharp()
    {
        cairo_set_operator(m_cr, m_operator);
        cairo_set_antialias(m_cr, m_before);
    }
    CSharp(const CSharp&) = delete;
    CSharp& operator=(const CSharp&) = delete;

private:
    cairo_t* const m_cr;
    const cairo_antialias_t m_before;
    const cairo_operator_t m_operator;
};

template <class Shape>
void Draw(wxDC& dc, const wxRect& bounds, wxRasterOperationMode op, const Shape& shape)
{
    cairo_t* const cr = CairoOf(dc);
    if (!cr || op == wxNO_OP)
        return;
    const CSharp sharp(cr);
    if (op == wxCOPY)
        shape(cr);
    else
        Combine(cr, bounds, op, shape);
}

} // namespace gtkport
} // namespace vela7
