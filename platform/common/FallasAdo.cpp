#include "platform/common/FallasAdo.h"

namespace celdora::platform {

Fault ArgumentosIncorrectos() {
    return {3001,
            "Arguments are of the wrong type, are out of acceptable range, or are in conflict with one another."};
}
Fault ArchivoNoAbierto() { return {3002, "File could not be opened."}; }
Fault EscrituraFallida() { return {3004, "Write to file failed."}; }
Fault SinRegistroActual() {
    return {3021,
            "Either BOF or EOF is True, or the current record has been deleted. Requested operation requires a "
            "current record."};
}
Fault NoPermitidoEnContexto() { return {3219, "Operation is not allowed in this context."}; }
Fault NoActualizable() {
    return {3251,
            "Current Recordset does not support updating. This may be a limitation of the provider, or of the "
            "selected locktype."};
}
Fault ElementoNoEncontrado() {
    return {3265, "Item cannot be found in the collection corresponding to the requested name or ordinal."};
}
Fault ObjetoCerrado() { return {3704, "Operation is not allowed when the object is closed."}; }
Fault ObjetoAbierto() { return {3705, "Operation is not allowed when the object is open."}; }
Fault ConexionNoUtilizable() {
    return {3709,
            "The connection cannot be used to perform this operation. It is either closed or invalid in this "
            "context."};
}

}  // namespace celdora::platform
