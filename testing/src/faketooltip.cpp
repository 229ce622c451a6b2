#include "vela7/testing/faketooltip.h"

#include "vela7/testing/fakewindow.h"

namespace vela7::testkit {

screen_rectangle<int> FakeTooltip::GetScreenRect() const
{
    return {place.x, place.y, place.x + fixedSize.width, place.y + fixedSize.height};
}

ISysWindow* FakeTooltip::GetCustomLayer()
{
    return m_layer.Get();
}

void FakeTooltip::SetLayerMode(LayerMode mode, bool hideLayerOnHide)
{
    m_mode = mode;
    m_hideLayer = hideLayerOnHide;
    if (mode != lmCustom)
        return;
    if (!m_layer) {
        m_layer = CHandle<FakeWindow>(new FakeWindow(m_owner, {}));
        m_layer->SetVisible(false);
    }
    if (m_visible)
        m_layer->SetVisible(true);
}

void FakeTooltip::ShowInt()
{
    m_visible = true;
    if (m_mode == lmCustom && m_layer) {
        m_layer->SetVisible(true);
        m_layer->SetWindowRect(0, 0, fixedSize.width, fixedSize.height, true); // its listeners may end all
        return;
    }
    fixedSize = {};
}

void FakeTooltip::HideInt()
{
    m_visible = false;
    if (m_mode != lmCustom || !m_hideLayer || !m_layer)
        return;
    m_mode = lmNormal;
    m_layer->SetVisible(false);
}

} // namespace vela7::testkit
