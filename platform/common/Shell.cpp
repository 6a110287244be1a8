#include "platform/common/Shell.h"

#include <optional>

#include "host/Platform.h"

namespace celdora::platform {

std::shared_ptr<host::ShellFolder> ShellCarpetas::BrowseForFolder(long /*windowHandle*/, const std::string& title,
                                                                  int /*options*/, const std::string& root) {
    std::optional<std::string> folder = host::CurrentPlatform().Ui().BrowseForFolder(title, root);
    if (!folder) return nullptr;
    return std::make_shared<CarpetaElegida>(std::move(*folder));
}

}  // namespace celdora::platform
