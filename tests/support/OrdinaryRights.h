// Root, to whom permissions mean something.
#pragma once

#include <linux/capability.h>
#include <linux/securebits.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace zolt::test {

/// As long as it lives the thread that made it may do with files what their permissions say, also as root. The tools
/// that it starts are root's again.
class OrdinaryRights
{
public:
    OrdinaryRights() : bits_(::prctl(PR_GET_SECUREBITS))
    {
        if (::geteuid() != 0) return;
        ::syscall(SYS_capget, &header_, rights_);
        auto fewer = rights_[0];
        fewer.effective &= ~(1U << CAP_DAC_OVERRIDE | 1U << CAP_DAC_READ_SEARCH | 1U << CAP_FOWNER);
        // Without the bit, who asks what root may do is still told: everything.
        hold_ = ::prctl(PR_SET_SECUREBITS, bits_ | SECBIT_NO_SETUID_FIXUP) == 0 && set(fewer);
    }
    ~OrdinaryRights()
    {
        if (::geteuid() != 0) return;
        set(rights_[0]);
        ::prctl(PR_SET_SECUREBITS, bits_);
    }
    OrdinaryRights(const OrdinaryRights&) = delete;
    OrdinaryRights& operator=(const OrdinaryRights&) = delete;

    /// False where this root may not give its rights away.
    bool hold() const { return hold_; }

private:
    bool set(const __user_cap_data_struct& low)
    {
        const __user_cap_data_struct both[2] = {low, rights_[1]};
        return ::syscall(SYS_capset, &header_, both) == 0;
    }

    __user_cap_header_struct header_ = {_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct rights_[2] = {};
    int bits_;
    bool hold_ = true;
};

} // namespace zolt::test
