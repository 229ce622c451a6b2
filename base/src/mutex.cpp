#include "basekit2/mutex.h"

#include "tarn/assert.h"

#include <system_error>

namespace basekit2 {
namespace threading {

void mutex_t::lock()
{
    try {
        m_mutex.lock();
    } catch (const std::system_error& error) {
        TARN::assertion_failed(error.what(), __FILE__, __LINE__);
    }
}

void mutex_t::unlock()
{
    m_mutex.unlock();
}

bool mutex_t::try_lock()
{
    return m_mutex.try_lock();
}

} // namespace threading
} // namespace basekit2
