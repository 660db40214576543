#include "models/ProjectEvents.h"

namespace {

ProjectEvents* currentProject = nullptr;

}

ProjectEvents::ProjectEvents(QObject* parent) : QObject(parent) {
    registerRecordTypes();
    currentProject = this;
}

ProjectEvents::~ProjectEvents() {
    if (currentProject == this)
        currentProject = nullptr;
}

ProjectEvents* ProjectEvents::current() {
    return currentProject;
}
