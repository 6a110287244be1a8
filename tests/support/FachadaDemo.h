#pragma once

// The facade bound to the demo company through a data object that notes its
// transaction calls, with the scripted user interface installed; and the
// checks that the facade's suites share.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "core/cAcction.h"
#include "tests/support/CompanyFixture.h"
#include "tests/support/DataObjectsAnotados.h"
#include "tests/support/TestPlatform.h"
#include "value/Convert.h"

namespace celdora::testing {

using Textos = std::vector<std::string>;

class FachadaDemo : public ::testing::Test {
protected:
    TestPlatform platform;
    CompanyDatabase db{CompanyDatabase::Datos::Demo};
    std::shared_ptr<DataObjectsAnotados> dataObjects = std::make_shared<DataObjectsAnotados>(db.dataObjects);
    cAcction acc;

    void SetUp() override { acc.SetDataObjects(dataObjects, nullptr); }

    // The only box shown so far: its text, icon and title, with OK alone.
    void UnaCaja(const std::string& texto, host::Icono icono = host::Icono::Exclamacion,
                 const std::string& titulo = "") {
        ASSERT_EQ(platform.ui.Cajas().size(), 1u);
        platform.ui.ExpectCaja(0, texto, icono, titulo);
    }
    bool SinCajas() const { return platform.ui.Cajas().empty(); }
    // The first column of the first row, as text.
    std::string Texto(const std::string& sql) { return CStr(db.Valor(sql)); }
};

}  // namespace celdora::testing
