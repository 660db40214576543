#include "records/ProjectContext.h"

namespace {

ProjectContext* currentContext = nullptr;

}

ProjectContext::~ProjectContext() {
    if (currentContext == this)
        currentContext = nullptr;
}

ProjectContext* ProjectContext::current() {
    return currentContext;
}

void ProjectContext::setCurrent(ProjectContext* context) {
    currentContext = context;
}
