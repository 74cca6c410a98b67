// SPDX-License-Identifier: MIT
#include "app/ProgramBundle.h"

namespace korvan {

BundleInformation programBundle() {
    return {{{"CFBundleShortVersionString", std::string(KORVAN_VERSION)},
             {"CFBundleVersion", std::string(KORVAN_BUILD)}},
            KORVAN_IDENTIFIER};
}

} // namespace korvan
