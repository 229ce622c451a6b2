/// Pictures and icons that have sizes and no pixels; what is drawn of them stands in the painter's log.
///
/// What works: sizes, the picture's own painter, the number of icons. What does not: nothing is scaled,
/// masked, blurred, loaded or saved; a copy has the size that was asked for. FakeSystem makes them; each dies
/// with its last handle.
#pragma once

#include "vela7/canvas.h"
#include "vela7/imagelist.h"
#include "vela7/testing/recordingpainter.h"

#include <vector>

namespace vela7::testkit {

class VELA7_TESTING_API FakeRasterPicture final : public IRasterPicture
{
public:
    explicit FakeRasterPicture(size<int> pixels);

    RecordingPainter painter;

    void SetSize(size<int> pixels) override;
    void Save(const std::string&) override {}
    void Load(const std::string&) override {}
    void ConvertFromXPM(const XPMImage& image, bool useMask) override;
    void SetMask(const IRasterPicture*) override {}
    bool CopyFrom(const IRasterPicture* source, const screen_rectangle<int>& area) override;
    void Scale(int width, int height) override { SetSize({width, height}); }
    void Blur(const size<int>&, const screen_rectangle<int>&) override {}
    CHandle<IPainter> CreatePainter() override;
    IPainter* TakeDefPainter() override { return &painter; }
    int GetCanvasMetrics(CanvasMetrics metric) const override { return CanvasMetric(metric, m_size); }
};

/// Drawn icons read "Icon 3 at 10 20 size 16 16 plain", or "transparent", or "disabled".
class VELA7_TESTING_API FakeImageList final : public IImageList
{
public:
    int AddXPM(const XPMImage& image) override;
    int AddRasterPicture(IRasterPicture* picture, const _color& mask) override;
    size<int> GetSize(int index) override;
    void Draw(IPainter* painter, int index, int x, int y, int width, int height) override;
    void DrawTransparent(IPainter* painter, int index, int x, int y, int width, int height) override;
    void DrawDisabled(IPainter* painter, int index, int x, int y, int width, int height) override;
    int GetImageCount() const override { return static_cast<int>(m_sizes.size()); }
    bool AddDisabledXPM(int index, const XPMImage&) override { return Has(index); }
    bool AddDisabledRasterPicture(int index, IRasterPicture*, const _color&) override { return Has(index); }

private:
    bool Has(int index) const { return index >= 0 && index < GetImageCount(); }
    int Add(size<int> pixels);
    void Note(IPainter* painter, int index, int x, int y, int width, int height, const char* how);

    std::vector<size<int>> m_sizes;
};

} // namespace vela7::testkit
