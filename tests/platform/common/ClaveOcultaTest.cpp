#include "tests/platform/common/ComportamientoMotor.h"

namespace celdora::platform::pruebas {
namespace {

// A recordset that writes back without selecting its table's key reads the
// key of each row apart: the fields stay those the statement names, and
// Update finds each row by its own key.
TEST_P(ComportamientoMotor, AnUpdatableRecordsetWithoutTheKeyReadsItApart) {
    Series({"A", "B", "C"});
    auto rs =
        AbrirEditable("Select uf_Serie, uf_Notas FROM " + folios + " WHERE Sys_PK>1 ORDER BY uf_Serie DESC", cnn);
    ASSERT_EQ(rs->FieldCount(), 2);
    EXPECT_EQ(rs->Fields(0).Name() + "," + rs->Fields(1).Name(), "uf_Serie,uf_Notas");
    EXPECT_EQ(FallaDe([&] { rs->Fields("Sys_PK"); }).number, 3265);
    EXPECT_FALSE(rs->Bof());
    rs->Fields("uf_Notas").Value("primera");
    rs->movenext();
    rs->Fields("uf_Notas").Value("segunda");
    rs->Update();
    rs->movenext();
    EXPECT_TRUE(rs->Eof());
    EXPECT_EQ(Columna("uf_Notas"), (std::vector<Variant>{Variant::Null(), "segunda", "primera"}));
}

}  // namespace
}  // namespace celdora::platform::pruebas
