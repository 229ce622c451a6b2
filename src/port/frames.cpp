#include "port/frames.h"

#include "port/gtk.h"

#include <wx/animate.h>
#include <wx/version.h>

namespace vela7 {
namespace gtkport {

namespace {

#if wxCHECK_VERSION(3, 2, 0)
// Only controls know what their animations are made of; this one is never created as a window.
struct PixbufReader : wxAnimationCtrl
{
    GdkPixbufAnimation* Read(const wxAnimation& animation)
    {
        m_animation = animation;
        return animation.IsCompatibleWith(wxCLASSINFO(wxAnimationCtrl)) ? AnimationImplGetPixbuf() : nullptr;
    }
};
#endif

GdkPixbufAnimation* PixbufOf(const wxAnimation& animation)
{
#if wxCHECK_VERSION(3, 2, 0)
    return animation.IsOk() ? PixbufReader().Read(animation) : nullptr;
#else
    return animation.GetPixbuf();
#endif
}

} // namespace

GdkPixbufAnimationIter* StartAnimation(const wxAnimation& animation)
{
    GdkPixbufAnimation* const pixbuf = PixbufOf(animation);
    return pixbuf ? gdk_pixbuf_animation_get_iter(pixbuf, nullptr) : nullptr;
}

void EndAnimation(GdkPixbufAnimationIter* iterator)
{
    g_object_unref(iterator);
}

int FrameDelay(GdkPixbufAnimationIter* iterator)
{
    return gdk_pixbuf_animation_iter_get_delay_time(iterator);
}

void AdvanceFrame(GdkPixbufAnimationIter* iterator)
{
    gdk_pixbuf_animation_iter_advance(iterator, nullptr);
}

wxBitmap CurrentFrame(GdkPixbufAnimationIter* iterator)
{
    GdkPixbuf* const pixbuf = gdk_pixbuf_animation_iter_get_pixbuf(iterator);
    if (pixbuf)
        g_object_ref(pixbuf); // the bitmap takes a reference over, the iterator keeps its own
    return pixbuf ? wxBitmap(pixbuf) : wxBitmap();
}

} // namespace gtkport
} // namespace vela7
