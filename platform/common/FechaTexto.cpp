#include "platform/common/FechaTexto.h"

#include <chrono>
#include <cmath>
#include <cstdio>

#include "value/Fault.h"

namespace celdora::platform {

namespace {

constexpr long long kSegundosPorDia = 86400;
// Days from 1899-12-30 (day 0) to 1970-01-01, the epoch of std::chrono.
constexpr long long kDesdeEpoca = 25569;
// The range of dates the value model holds: 100-01-01 to 9999-12-31.
constexpr long long kPrimerDia = -657434;
constexpr long long kUltimoDia = 2958465;

// Reads exactly `cuantos` digits at `pos`; advances pos.
std::optional<int> Digitos(std::string_view texto, std::size_t& pos, std::size_t cuantos) {
    if (pos + cuantos > texto.size()) return std::nullopt;
    int valor = 0;
    for (std::size_t i = 0; i < cuantos; ++i) {
        const char c = texto[pos + i];
        if (c < '0' || c > '9') return std::nullopt;
        valor = valor * 10 + (c - '0');
    }
    pos += cuantos;
    return valor;
}

bool Signo(std::string_view texto, std::size_t& pos, char signo) {
    if (pos >= texto.size() || texto[pos] != signo) return false;
    ++pos;
    return true;
}

}  // namespace

long long NumeroDeDia(const DiaCivil& dia) {
    using namespace std::chrono;
    const year_month_day ymd{year{dia.anio}, month{static_cast<unsigned>(dia.mes)},
                             day{static_cast<unsigned>(dia.dia)}};
    return sys_days{ymd}.time_since_epoch().count() + kDesdeEpoca;
}

DiaCivil DiaDeNumero(long long numero) {
    using namespace std::chrono;
    const year_month_day ymd{sys_days{days{numero - kDesdeEpoca}}};
    return DiaCivil{static_cast<int>(ymd.year()), static_cast<int>(static_cast<unsigned>(ymd.month())),
                    static_cast<int>(static_cast<unsigned>(ymd.day()))};
}

std::string TextoDeFecha(Date fecha) {
    const double serial = fecha.serial;
    if (!std::isfinite(serial)) throw Overflow();
    const double entero = std::trunc(serial);
    if (entero < static_cast<double>(kPrimerDia) || entero > static_cast<double>(kUltimoDia)) throw Overflow();
    // The whole part counts days (backwards before day 0) while the fraction
    // always counts forwards from that day's midnight.
    long long numero = static_cast<long long>(entero);
    long long segundos = std::llround(std::fabs(serial - entero) * static_cast<double>(kSegundosPorDia));
    if (segundos >= kSegundosPorDia) {
        ++numero;
        segundos -= kSegundosPorDia;
    }
    const DiaCivil dia = DiaDeNumero(numero);
    const int s = static_cast<int>(segundos);
    char texto[64];
    std::snprintf(texto, sizeof texto, "%04d-%02d-%02d %02d:%02d:%02d", dia.anio, dia.mes, dia.dia, s / 3600,
                  s / 60 % 60, s % 60);
    return texto;
}

std::optional<Date> FechaDeTexto(std::string_view texto) {
    std::size_t pos = 0;
    const auto anio = Digitos(texto, pos, 4);
    if (!anio || !Signo(texto, pos, '-')) return std::nullopt;
    const auto mes = Digitos(texto, pos, 2);
    if (!mes || !Signo(texto, pos, '-')) return std::nullopt;
    const auto dia = Digitos(texto, pos, 2);
    if (!dia) return std::nullopt;

    int hora = 0, minuto = 0;
    double segundo = 0;
    if (pos < texto.size()) {
        if (texto[pos] != ' ' && texto[pos] != 'T') return std::nullopt;
        ++pos;
        const auto h = Digitos(texto, pos, 2);
        if (!h || !Signo(texto, pos, ':')) return std::nullopt;
        const auto m = Digitos(texto, pos, 2);
        if (!m) return std::nullopt;
        hora = *h;
        minuto = *m;
        if (Signo(texto, pos, ':')) {
            const auto s = Digitos(texto, pos, 2);
            if (!s) return std::nullopt;
            segundo = *s;
            if (Signo(texto, pos, '.')) {
                double escala = 0.1;
                const std::size_t inicio = pos;
                while (pos < texto.size() && texto[pos] >= '0' && texto[pos] <= '9') {
                    segundo += (texto[pos] - '0') * escala;
                    escala /= 10;
                    ++pos;
                }
                if (pos == inicio) return std::nullopt;
            }
        }
        if (pos != texto.size() || hora > 23 || minuto > 59 || segundo >= 60) return std::nullopt;
    }

    using namespace std::chrono;
    const year_month_day ymd{year{*anio}, month{static_cast<unsigned>(*mes)}, day{static_cast<unsigned>(*dia)}};
    if (!ymd.ok()) return std::nullopt;
    long long numero = NumeroDeDia(DiaCivil{*anio, *mes, *dia});
    long long segundos = hora * 3600LL + minuto * 60LL + std::llround(segundo);
    if (segundos >= kSegundosPorDia) {  // 23:59:59.6 rounds into the next day
        ++numero;
        segundos -= kSegundosPorDia;
    }
    if (numero < kPrimerDia || numero > kUltimoDia) return std::nullopt;
    const double fraccion = static_cast<double>(segundos) / static_cast<double>(kSegundosPorDia);
    const double entero = static_cast<double>(numero);
    return Date{numero >= 0 ? entero + fraccion : entero - fraccion};
}

}  // namespace celdora::platform
