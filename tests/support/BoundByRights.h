#pragma once

#include <QtGlobal>

#include <linux/capability.h>
#include <sys/syscall.h>
#include <unistd.h>

// While it lives the rights of files bind this thread, also when it is root's.
class BoundByRights {
public:
    BoundByRights() {
        if (::syscall(SYS_capget, &m_header, m_before) != 0) qFatal("no capabilities");
        __user_cap_data_struct without[_LINUX_CAPABILITY_U32S_3] = {m_before[0], m_before[1]};
        without[0].effective &= ~(1u << CAP_DAC_OVERRIDE | 1u << CAP_DAC_READ_SEARCH);
        if (::syscall(SYS_capset, &m_header, without) != 0) qFatal("capabilities stay");
    }
    ~BoundByRights() { ::syscall(SYS_capset, &m_header, m_before); }
    BoundByRights(const BoundByRights&) = delete;
    BoundByRights& operator=(const BoundByRights&) = delete;

private:
    __user_cap_header_struct m_header{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct m_before[_LINUX_CAPABILITY_U32S_3]{};
};
