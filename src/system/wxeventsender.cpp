// The event senders of all toolkit interfaces, instantiated once for every library that uses them.

#include "vela7/customcontrol.h"
#include "vela7/eventsender.h"
#include "vela7/inplace.h"
#include "vela7/menu.h"
#include "vela7/scrollbar.h"
#include "vela7/system.h"
#include "vela7/window.h"

namespace vela7 {

template class CImplEventSender<ISysWindow>;
template class CImplEventSender<ISysTimer>;
template class CImplEventSender<IClipboard>;
template class CImplEventSender<ICustomControl>;
template class CImplEventSender<IInplaceEdit>;
template class CImplEventSender<IInplaceComboBox>;
template class CImplEventSender<IScrollBar>;
template class CImplEventSender<IPopupMenu>;
template class CSubscriber<ITimerNotify>;

} // namespace vela7
