#pragma once

/// Marks what a shared library of this project offers to others. Everything else stays hidden
/// (`-fvisibility=hidden`), so the list of exported symbols is the interface and nothing more.
#define LUM_EXPORT __attribute__((visibility("default")))
