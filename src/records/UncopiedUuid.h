#pragma once

#include <QUuid>

/// A uuid that stays behind when its owner is copied.
struct UncopiedUuid {
    QUuid value;

    UncopiedUuid() = default;
    UncopiedUuid(const UncopiedUuid&) {}
    UncopiedUuid& operator=(const UncopiedUuid&) { return *this; }
};
