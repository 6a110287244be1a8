#include "app/celdora/Demo.h"

#include <filesystem>
#include <ostream>

#include "core/mdlMain.h"
#include "host/Platform.h"
#include "host/Settings.h"
#include "platform/sqlite/Sqlite.h"
#include "schema/Schema.h"
#include "value/Channels.h"
#include "value/Convert.h"
#include "value/Format.h"

namespace celdora::app {

namespace {

long Contar(const std::shared_ptr<host::Connection>& cnn, const std::string& sql) {
    Variant value = mdlMain::LeerValorConsulta(cnn, sql, "");
    return value.IsEmpty() ? 0 : CLng(value);
}

const char* NombreTipo(int tipo) {
    switch (tipo) {
        case 1: return "CFD";
        case 2: return "CFDI";
        case 3: return "CBB";
        case 4: return "CFDI y CBB por block";
        case 5: return "papel";
        default: return "desconocido";
    }
}

void Resumir(const std::shared_ptr<host::Connection>& cnn, const std::string& ruta, std::ostream& out) {
    auto settings = host::Crear<host::GlobalVar>(host::progid::GlobalVar);
    settings->Conectar(cnn);
    const int tipo = CInt(settings->LeerNumero("NVCA300xa", 2));

    out << "Empresa de demostración creada en " << ruta << "\n"
        << "  Emisor: " << settings->LeerTexto("NVCA100", "") << " (RFC " << settings->LeerTexto("NVCA101", "")
        << ")\n"
        << "  Tipo de comprobante: " << tipo << " (" << NombreTipo(tipo) << ")\n"
        << "  Certificados: " << Contar(cnn, "SELECT Count(Sys_PK) FROM ut_CFDInfo")
        << ", rangos de folios: " << Contar(cnn, "SELECT Count(Sys_PK) FROM ut_CFDFolio")
        << ", rangos CBB: " << Contar(cnn, "SELECT Count(Sys_PK) FROM ut_FoliosCBB") << "\n"
        << "  Blocks de facturas y notas: "
        << Contar(cnn, "SELECT Count(Sys_PK) FROM BlockDocumentos WHERE (BlockDocumentos.Documento=4 OR "
                       "BlockDocumentos.Documento=5 OR BlockDocumentos.Documento=17)")
        << "\n"
        << "  Ventas: " << Contar(cnn, "SELECT Count(Sys_PK) FROM Venta")
        << ", cuentas por cobrar: " << Contar(cnn, "SELECT Count(Sys_PK) FROM DCXC") << "\n"
        << "  Comprobantes: " << Contar(cnn, "SELECT Count(Sys_PK) FROM ut_CFD") << "\n";

    auto meses = mdlMain::AbrirConsulta(
        cnn, "SELECT Year(uf_FechaHora) AS Anio, Month(uf_FechaHora) AS Mes, Count(Sys_PK) AS Total FROM ut_CFD "
             "GROUP BY Year(uf_FechaHora), Month(uf_FechaHora) ORDER BY Anio, Mes");
    if (meses) {
        for (; !meses->Eof(); meses->movenext()) {
            out << "    " << Format(meses->Fields("Mes").Value(), "00") << "/" << CStr(meses->Fields("Anio").Value())
                << ": " << CStr(meses->Fields("Total").Value()) << "\n";
        }
        meses->Close();
    }
    out << "  Líneas de bitácora: " << Contar(cnn, "SELECT Count(Sys_PK) FROM ut_CFDBitacora")
        << ", ya reportadas: " << Contar(cnn, "SELECT Count(Sys_PK) FROM ut_CFDBitacora WHERE uf_Reportado<>0")
        << "\n"
        << "  Informes mensuales guardados: " << Contar(cnn, "SELECT Count(Sys_PK) FROM ut_CFDInforme") << "\n";
}

}  // namespace

int CrearDemo(const OpcionesDemo& opciones, std::ostream& out, std::ostream& err) {
    namespace fs = std::filesystem;
    std::error_code ec;
    if (fs::exists(opciones.ruta, ec)) {
        if (!opciones.reemplazar) {
            err << "Ya existe " << opciones.ruta
                << ". Indique otra ruta, o --reemplazar para crearla de nuevo (se pierde lo que tenga).\n";
            return 2;
        }
        fs::remove(opciones.ruta, ec);
        if (ec) {
            err << "No se pudo borrar " << opciones.ruta << ": " << ec.message() << "\n";
            return 1;
        }
    }

    auto fault = Trap([&] {
        auto cnn = platform::AbrirSqlite(opciones.ruta);
        // Schema and data go in one transaction, so a failure leaves no half-made company.
        auto& motor = cnn->motor();
        motor.IniciarTransaccion();
        try {
            platform::EjecutarGuion(*cnn, std::string(schema::EsquemaSqlite()));
            platform::EjecutarGuion(*cnn, std::string(schema::DatosDemo()));
            motor.ConfirmarTransaccion();
        } catch (const Fault&) {
            motor.RevertirTransaccion();
            throw;
        }
        Resumir(cnn, opciones.ruta, out);
    });
    if (fault) {
        err << "No se pudo crear la empresa de demostración: " << ErrorText(*fault) << "\n";
        fs::remove(opciones.ruta, ec);
        return 1;
    }
    return 0;
}

}  // namespace celdora::app
