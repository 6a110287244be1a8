#pragma once

// The editors opened through the facade on the demo company, a script run in
// each, and the statements that wrote meanwhile.

#include <functional>
#include <string>

#include "tests/support/FachadaDemo.h"

namespace celdora::testing {

class Editores : public FachadaDemo {
protected:
    std::size_t desde = 0;

    // The next showing of the dialog runs the script; it is then cancelled if still up.
    template <class Dialogo>
    void AlAbrir(const std::string& clase, std::function<void(Dialogo&)> guion) {
        platform.ui.AlMostrar(clase, [guion](forms::Dialogo& d) {
            guion(dynamic_cast<Dialogo&>(d));
            if (d.Visible()) d.Ver<forms::CommandButton>("btnCancel").Pulsar();
        });
        desde = db.sentencias->size();
    }
    Textos Escritas() const {
        Textos escritas;
        for (std::size_t i = desde; i < db.sentencias->size(); ++i) {
            const std::string& s = (*db.sentencias)[i];
            if (s.rfind("INSERT", 0) == 0 || s.rfind("UPDATE", 0) == 0) escritas.push_back(s);
        }
        return escritas;
    }
    static std::string Foco(const forms::Dialogo& d) { return d.Foco()->Nombre(); }
};

}  // namespace celdora::testing
