#pragma once

/// Marks what a shared library of this project exports. Everything else is hidden (`-fvisibility=hidden`), so
/// that the exported symbols are the interface and nothing more.
#define LUM_EXPORT __attribute__((visibility("default")))
