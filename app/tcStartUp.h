#pragma once

/// What the program does around its application object, before there is a window.
namespace tcStartUp
{

/// First of all: where libraries may come from, and how the application draws.
void beforeApplication();

/// Once the application object stands: its icon, and its texts in the system's language.
void afterApplication();

} // namespace tcStartUp
