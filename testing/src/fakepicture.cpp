#include "vela7/testing/fakepicture.h"

#include "vela7/xpm.h"

namespace vela7::testkit {

FakeRasterPicture::FakeRasterPicture(size<int> pixels)
{
    painter.SetCounted(false); // a part of this picture
    painter.SetCanvas(this);
    SetSize(pixels);
}

void FakeRasterPicture::SetSize(size<int> pixels)
{
    m_size = pixels;
    painter.Resize(pixels.width, pixels.height);
}

void FakeRasterPicture::ConvertFromXPM(const XPMImage& image, bool)
{
    SetSize({image.width, image.height});
}

bool FakeRasterPicture::CopyFrom(const IRasterPicture* source, const screen_rectangle<int>& area)
{
    if (!source || area.IsEmpty())
        return false;
    SetSize({area.Width(), area.Height()});
    return true;
}

CHandle<IPainter> FakeRasterPicture::CreatePainter()
{
    auto* const made = new RecordingPainter;
    made->SetCanvas(this);
    made->Resize(m_size.width, m_size.height);
    return CHandle<IPainter>(made);
}

int FakeImageList::Add(size<int> pixels)
{
    m_sizes.push_back(pixels);
    return GetImageCount() - 1;
}

int FakeImageList::AddXPM(const XPMImage& image)
{
    return Add({image.width, image.height});
}

int FakeImageList::AddRasterPicture(IRasterPicture* picture, const _color&)
{
    return Add(picture ? picture->GetSize() : size<int>());
}

size<int> FakeImageList::GetSize(int index)
{
    return Has(index) ? m_sizes[static_cast<std::size_t>(index)] : size<int>();
}

// Device coordinates, as everything in a painter's log.
void FakeImageList::Note(IPainter* painter, int index, int x, int y, int width, int height, const char* how)
{
    auto* const to = dynamic_cast<RecordingPainter*>(painter);
    if (!to || !to->IsEnabled() || !Has(index))
        return;
    const size<int> natural = GetSize(index);
    point<double> place(x, y);
    to->ConvertCoord1(&place, false);
    to->drawn.Note("Icon", index, "at", place.x, place.y, "size", width ? width : natural.width,
                   height ? height : natural.height, how);
}

void FakeImageList::Draw(IPainter* painter, int index, int x, int y, int width, int height)
{
    Note(painter, index, x, y, width, height, "plain");
}

void FakeImageList::DrawTransparent(IPainter* painter, int index, int x, int y, int width, int height)
{
    Note(painter, index, x, y, width, height, "transparent");
}

void FakeImageList::DrawDisabled(IPainter* painter, int index, int x, int y, int width, int height)
{
    Note(painter, index, x, y, width, height, "disabled");
}

} // namespace vela7::testkit
