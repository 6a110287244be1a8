#pragma once

#include <memory>
#include <string>

#include "host/HostObjects.h"

namespace celdora::platform {

// The folder the user chose in the picker.
class CarpetaElegida : public host::ShellFolder {
public:
    explicit CarpetaElegida(std::string ruta) : ruta_(std::move(ruta)) {}
    std::string SelfPath() const override { return ruta_; }
    std::string ItemsItemPath() const override { return ruta_; }

private:
    std::string ruta_;
};

// "Shell32.Shell" and "Shell.Application": the folder picker of the installed
// platform's user interface. The window handle and the options are not
// passed on: the picker is always modal to the application and only ever
// offers file system folders, which is all the options the system uses ask
// for.
class ShellCarpetas : public host::Shell {
public:
    // The chosen folder, or null when the user cancelled.
    std::shared_ptr<host::ShellFolder> BrowseForFolder(long windowHandle, const std::string& title, int options,
                                                       const std::string& root) override;
};

}  // namespace celdora::platform
