// SPDX-License-Identifier: MIT
// iappframework.cpp -- the installed framework and the JSON helper.
#include "host/framework/iappframework.h"

#include "host/framework/cjsonutil.h"

#include <atomic>

namespace {
std::atomic<IAppFramework *> installedFramework{nullptr};
}

IAppFramework *GetFramework()
{
    return installedFramework.load();
}

void SetFramework(IAppFramework *framework)
{
    installedFramework.store(framework);
}

CJsonUtil *GetJsonUtil()
{
    static CJsonUtil util;
    return &util;
}
