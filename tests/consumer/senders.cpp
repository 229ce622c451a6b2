// Takes the event senders from the libraries instead of making its own.

#include "vela7/customcontrol.h"
#include "vela7/inplace.h"
#include "vela7/menu.h"
#include "vela7/scrollbar.h"
#include "vela7/system.h"
#include "vela7/window.h"

using namespace vela7;

// Refers to all that a sender of another library is made of: its virtual table holds each operation.
template <class I>
struct Own : CImplEventSender<I>
{
    Own() { this->StopAll(); }
};

#define TAKE(I)                                                                                              \
    extern template class vela7::CImplEventSender<I>;                                                        \
    template struct Own<I>;
TAKE(ISysWindow)
TAKE(ISysTimer)
TAKE(IClipboard)
TAKE(ICustomControl)
TAKE(IInplaceEdit)
TAKE(IInplaceComboBox)
TAKE(IScrollBar)
TAKE(IPopupMenu)
extern template class vela7::CSubscriber<ITimerNotify>;

int main()
{
    const CSubscriber<ITimerNotify> listener;
}
