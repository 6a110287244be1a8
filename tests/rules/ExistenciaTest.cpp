// The existence and approval questions about one sale or receivable of the
// demo company (see the schema's key map). Every answer and the boxes of the
// CBB folio check are asserted on each engine by the behaviour suite; here
// the facade holds ADOCnn alone, and a closed connection answers in silence.

#include <vector>

#include "tests/support/FachadaDemo.h"

namespace celdora {
namespace {

class Existencia : public testing::FachadaDemo {
protected:
    void SetUp() override { acc.setObjects(db.cnn, nullptr); }
};

TEST_F(Existencia, EachQuestionReadsADOCnnAndAClosedOneAnswersFalseInSilence) {
    const auto respuestas = [&] {
        return std::vector<bool>{acc.ExisteCFD(1), acc.ExisteCFD_CXC(1), acc.DocumentoAprobadoParaCFD(1),
                                 acc.DocumentoAprobadoParaCFD_CXC(1), acc.DocumentoAprobadoParaCFDI(6),
                                 acc.DocumentoAprobadoParaCFDI_CXC(2),  // block D, certificate 2
                                 acc.FolioAprobadoCBB(8), acc.FolioAprobadoCBB(10),  // C-1 and C-500, the bounds
                                 acc.FolioAprobadoCBB_CXC(3)};                       // H-100, the last folio
    };
    EXPECT_EQ(respuestas(), std::vector<bool>(9, true));
    db.cnn->Close();
    EXPECT_EQ(respuestas(), std::vector<bool>(9, false));
    EXPECT_TRUE(SinCajas());
}

}  // namespace
}  // namespace celdora
