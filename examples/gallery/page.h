/// The pages of the gallery.
///
/// A page is toolkit-neutral code that makes one toolkit window its own: it subscribes to the window and
/// draws it. The host makes the window and the page, and deletes the page; either may die first.
#pragma once

#include "vela7/window.h"

#include <memory>
#include <vector>

namespace gallery {

class Page
{
public:
    virtual ~Page() = default;
    /// Shows little until something happens to it: for its screenshot the host clicks and types a bit.
    virtual bool WantsSampleInput() const { return false; }
};

struct PageEntry
{
    const char* name;
    std::unique_ptr<Page> (*create)(vela7::ISysWindow& window);
};

/// In the order of the tabs.
const std::vector<PageEntry>& AllPages();

} // namespace gallery
