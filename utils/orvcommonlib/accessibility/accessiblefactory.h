#pragma once

/// Where assistive technology gets to know the library's widgets. Everything happens by itself when the library
/// is loaded and unloaded, but for this:
namespace AccessibleFactory {

/// To be called by the constructor of a widget without a meta-object of its own. For such a one Qt asks by the
/// name of its base class only, to which Qt has an answer, too: whoever was installed last answers, and Qt's
/// answers are installed by the application object, after the library has been loaded.
void askForTypesFirst();

} // namespace AccessibleFactory
