#include "vela7/cbase.h"

namespace vela7 {

CBase::~CBase() = default;

std::uint64_t CBase::AddRef()
{
    return ++m_count;
}

std::uint64_t CBase::Release()
{
    // Kept by contract: an object whose count was never raised dies on its first Release.
    if (m_count <= 1) {
        m_count = 0;
        DeleteBase(this);
        return 0;
    }
    return --m_count;
}

void CBase::Dispose()
{
    delete this;
}

void DeleteBase(CBase* object)
{
    if (object && object->IsCounted())
        object->Dispose();
}

} // namespace vela7
