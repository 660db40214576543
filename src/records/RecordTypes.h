#pragma once

/// Makes the meta-type system know every record and the list of each, so that they cross threads in queued
/// signals and QML can walk a returned list. Safe to call more than once.
void registerRecordTypes();
