#include "icons.h"

#include "vela7/system.h"
#include "vela7/xpm.h"

#include <string>
#include <vector>

namespace gallery {

using namespace vela7;

namespace {

// clang-format off
constexpr const char* palette[] = {
    "  c None",    "# c #3a4450", "w c #ffffff", "y c #f2c14e", "o c #d98a2b", "b c #3a7bd5", "l c #9cc4f2",
    "g c #3fa66b", "r c #d64550", "s c #c3ccd6", "d c #a8b0ba", "e c #eceff3",
};

constexpr const char* icons[kIcons][kIconSide] = {
    {"                ", "  #########     ", "  #wwwwwww##    ", "  #wwwwwww#s#   ",  // a page
     "  #wbbbbww####  ", "  #wwwwwwwww#   ", "  #wlllllllw#   ", "  #wwwwwwwww#   ",
     "  #wllllllww#   ", "  #wwwwwwwww#   ", "  #wlllllllw#   ", "  #wwwwwwwww#   ",
     "  #wllllwwww#   ", "  #wwwwwwwww#   ", "  ###########   ", "                "},
    {"                ", "                ", "  #####         ", " #yyyyy#        ",  // a folder
     " #yyyyyy####### ", " #yyyyyyyyyyyy# ", " #yyyyyyyyyyyy# ", " ############## ",
     " #ooooooooooooo#", " #oyyyyyyyyyyo# ", " #oyyyyyyyyyyo# ", " #oyyyyyyyyyyo# ",
     " #oyyyyyyyyyyo# ", " #oooooooooooo# ", " ############## ", "                "},
    {"                ", " ############## ", " #b#wwwwwwww#b# ", " #b#wrrrrrrw#b# ",  // a disk
     " #b#wwwwwwww#b# ", " #b#wrrrrrrw#b# ", " #b#wwwwwwww#b# ", " #bb########bb# ",
     " #bbbbbbbbbbbb# ", " #bbb#######bb# ", " #bbb#sssbs#bb# ", " #bbb#sssbs#bb# ",
     " #bbb#sssbs#bb# ", "  #bb#sssss#bb# ", "   ############ ", "                "},
    {"                ", "    #####       ", "  ##lllll##     ", "  #llwwlll#     ",  // a lens
     " #llwwlllll#    ", " #llwllllll#    ", " #lllllllll#    ", " #lllllllll#    ",
     " #lllllllll#    ", "  #lllllll##    ", "  ##lllll###o   ", "    #####  #oo  ",
     "            #oo ", "             #o#", "              # ", "                "},
    {"       ##       ", "      #rr#      ", "      #rr#      ", "     #rrrr#     ",  // a sign
     "     #rwwr#     ", "    #rrwwrr#    ", "    #rrwwrr#    ", "   #rrrwwrrr#   ",
     "   #rrrwwrrr#   ", "  #rrrrwwrrrr#  ", "  #rrrrrrrrrr#  ", " #rrrrrwwrrrrr# ",
     " #rrrrrwwrrrrr# ", "#rrrrrrrrrrrrrr#", "################", "                "},
    {"                ", "             ## ", "            #gg#", "           #ggg#",  // a tick
     "          #ggg# ", "          #ggg# ", "         #ggg#  ", "  ##    #ggg#   ",
     " #gg#   #ggg#   ", "#gggg# #ggg#    ", "#ggggg#gggg#    ", " #gggggggg#     ",
     "  #ggggggg#     ", "   #ggggg#      ", "    #ggg#       ", "     ###        "},
};
// clang-format on

/// Light, with thin lines.
std::string Outlined(std::string row)
{
    for (char& pixel : row)
        pixel = pixel == ' ' ? ' ' : pixel == '#' ? 'd' : 'e';
    return row;
}

} // namespace

CHandle<IImageList> MakeIcons(bool ownDisabled)
{
    CHandle<IImageList> list = GetCurrentSystem()->CreateImageList();
    for (int i = 0; list && i < kIcons; ++i) {
        std::vector<std::string> texts = {std::to_string(ownDisabled ? 2 * kIconSide : kIconSide) +
                                          " 16 12 1"};
        texts.insert(texts.end(), std::begin(palette), std::end(palette));
        for (const char* const drawn : icons[i]) {
            const std::string row = std::string(drawn).substr(0, kIconSide);
            texts.push_back(ownDisabled ? row + Outlined(row) : row); // twice as wide as high: both looks
        }
        std::vector<const char*> lines;
        lines.reserve(texts.size());
        for (const std::string& text : texts)
            lines.push_back(text.c_str());
        list->AddXPM(XPMImage(lines.data()));
    }
    return list;
}

} // namespace gallery
