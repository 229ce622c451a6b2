#include "page.h"

// To add a page: a file that defines gallery::Create<Name>Page, and its line here with the label of its tab.
// clang-format off
#define GALLERY_PAGES(PAGE)                      \
    PAGE(Shapes,             "Shapes")           \
    PAGE(Text,               "Text")             \
    PAGE(Elements,           "Elements")         \
    PAGE(Pictures,           "Pictures")         \
    PAGE(Icons,              "Icons")            \
    PAGE(Animation,          "Animation")        \
    PAGE(Events,             "Events")           \
    PAGE(Focus,              "Focus")            \
    PAGE(PopupsAndTips,      "Popups and tips")  \
    PAGE(Grid,               "Grid")             \
    PAGE(Threads,            "Threads")          \
    PAGE(ClipboardAndTimers, "Clipboard and timers")
// clang-format on

namespace gallery {

#define DECLARE_PAGE(name, label) std::unique_ptr<Page> Create##name##Page(vela7::ISysWindow& window);
GALLERY_PAGES(DECLARE_PAGE)

const std::vector<PageEntry>& AllPages()
{
#define PAGE_ENTRY(name, label) {#name, label, &Create##name##Page},
    static const std::vector<PageEntry> pages{GALLERY_PAGES(PAGE_ENTRY)};
    return pages;
}

} // namespace gallery
