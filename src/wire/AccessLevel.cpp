#include "wire/AccessLevel.h"

#include <array>

namespace {

const std::array<QLatin1String, 4> names{QLatin1String("revoked"), QLatin1String("read"),
                                         QLatin1String("write"), QLatin1String("owner")};

}

QString accessLevelName(AccessLevel level) {
    return names[static_cast<size_t>(level)];
}

AccessLevel accessLevelFromName(const QString& name) {
    for (size_t i = 0; i < names.size(); ++i) {
        if (name == names[i])
            return static_cast<AccessLevel>(i);
    }
    return AccessLevel::Revoked;
}
