#pragma once

/// What QML knows by name.
namespace registration {

/// Types that must be known before the application object exists.
void registerEarlyMetaTypes();

/// Pointers to models that QML passes around.
void registerModelMetaTypes();

/// The types of the module "Kernova".
void registerQmlTypes();

}  // namespace registration
