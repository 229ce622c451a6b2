#include "page.h"

// To add a page: a file that defines gallery::Create<Token>Page, and its line here with the label of its tab.
#define GALLERY_PAGES(PAGE)                                                                                  \
    PAGE(Shapes, "Shapes")                                                                                   \
    PAGE(Text, "Text")                                                                                       \
    PAGE(Elements, "Elements")                                                                               \
    PAGE(Pictures, "Pictures")                                                                               \
    PAGE(Icons, "Icons")                                                                                     \
    PAGE(Animation, "Animation")                                                                             \
    PAGE(Events, "Events")

namespace gallery {

#define DECLARE_PAGE(token, label) std::unique_ptr<Page> Create##token##Page(vela7::ISysWindow& window);
GALLERY_PAGES(DECLARE_PAGE)

const std::vector<PageEntry>& AllPages()
{
#define PAGE_ENTRY(token, label) {label, &Create##token##Page},
    static const std::vector<PageEntry> pages{GALLERY_PAGES(PAGE_ENTRY)};
    return pages;
}

} // namespace gallery
