#pragma once

/// A label and the command script that is sent for it, each command ended by a line feed.
/// Both are 8-bit texts that somebody else owns; a null label ends a list of presets.
struct tcPreset
{
    const char* label = nullptr;
    const char* script = nullptr;
};
