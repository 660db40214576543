#pragma once

#include "models/BatchOperationManager.h"

/// A bulk change of kernos that lasts as long as this object; none without a manager.
class KernoBatch {
public:
    explicit KernoBatch(BatchOperationManager* manager) : m_manager(manager) {
        if (m_manager)
            m_manager->startKernoBatch();
    }
    ~KernoBatch() {
        if (m_manager)
            m_manager->finishKernoBatch();
    }
    KernoBatch(const KernoBatch&) = delete;
    KernoBatch& operator=(const KernoBatch&) = delete;

private:
    BatchOperationManager* m_manager;
};
