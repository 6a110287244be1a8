#include "platform/crypto/ProcesoSello.h"

#include <gtest/gtest.h>

namespace celdora::platform {
namespace {

TEST(ProcesoSello, Md5IsLowercaseHexOfTheTextBytes) {
    ProcesoSello sello;
    EXPECT_EQ(sello.getMD5(""), "d41d8cd98f00b204e9800998ecf8427e");
    EXPECT_EQ(sello.getMD5("abc"), "900150983cd24fb0d6963f7d28e17f72");
    EXPECT_EQ(sello.getMD5("contraseña"), "4c882dcb24bcb1bc225391a602feca7c");  // its UTF-8 bytes
}

}  // namespace
}  // namespace celdora::platform
