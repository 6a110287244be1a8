#include "platform/qt/QtUi.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <vector>

#include "platform/common/Picture.h"
#include "platform/qt/TextoQt.h"
#include "platform/qt/VentanaQt.h"

namespace celdora::platform {

namespace {

QMessageBox::Icon IconoQt(host::Icono icono) {
    switch (icono) {
        case host::Icono::Critico: return QMessageBox::Critical;
        case host::Icono::Exclamacion: return QMessageBox::Warning;
        case host::Icono::Informacion: return QMessageBox::Information;
        case host::Icono::Pregunta: return QMessageBox::Question;
        case host::Icono::Ninguno: break;
    }
    return QMessageBox::NoIcon;
}

struct BotonCaja {
    const char* texto;
    QMessageBox::ButtonRole papel;
    host::Respuesta respuesta;
};

std::vector<BotonCaja> BotonesDe(host::Botones botones) {
    using host::Respuesta;
    const BotonCaja aceptar{"Aceptar", QMessageBox::AcceptRole, Respuesta::Aceptar};
    const BotonCaja cancelar{"Cancelar", QMessageBox::RejectRole, Respuesta::Cancelar};
    const BotonCaja si{"Sí", QMessageBox::YesRole, Respuesta::Si};
    const BotonCaja no{"No", QMessageBox::NoRole, Respuesta::No};
    switch (botones) {
        case host::Botones::Aceptar: return {aceptar};
        case host::Botones::AceptarCancelar: return {aceptar, cancelar};
        case host::Botones::SiNo: return {si, no};
        case host::Botones::SiNoCancelar: return {si, no, cancelar};
    }
    return {aceptar};
}

// What a box answers when it is closed without a button: its last one
// (Cancelar, No, or Aceptar when it is the only one).
host::Respuesta RespuestaAlCerrar(const std::vector<BotonCaja>& botones) { return botones.back().respuesta; }

// The window a box or picker stands in front of.
QWidget* Delante() {
    QWidget* modal = QApplication::activeModalWidget();
    return modal != nullptr ? modal : QApplication::activeWindow();
}

std::optional<std::string> Elegido(QFileDialog& dialogo) {
    // The paths as the picker accepted them: read again once it has closed,
    // its selection may already follow the folder view that goes on loading
    // behind it.
    QStringList elegidos;
    QObject::connect(&dialogo, &QFileDialog::filesSelected, [&elegidos](const QStringList& f) { elegidos = f; });
    if (dialogo.exec() != QDialog::Accepted || elegidos.isEmpty()) return std::nullopt;
    return Utf8(QDir::toNativeSeparators(elegidos.constFirst()));
}

std::optional<std::string> Archivo(const host::FileDialogRequest& request, QFileDialog::AcceptMode modo) {
    QFileDialog dialogo(Delante(), Qs(request.title));
    dialogo.setAcceptMode(modo);
    dialogo.setFileMode(modo == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    // The system asks itself before it overwrites a file that matters.
    dialogo.setOption(QFileDialog::DontConfirmOverwrite);
    const QString filtro = FiltroArchivosQt(request.filter);
    if (!filtro.isEmpty()) dialogo.setNameFilter(filtro);
    if (!request.initDir.empty()) dialogo.setDirectory(Qs(request.initDir));
    if (!request.fileName.empty()) dialogo.selectFile(Qs(request.fileName));
    return Elegido(dialogo);
}

}  // namespace

// The windows of dialogs shown without waiting that may still be up.
struct QtUi::Ventanas {
    std::vector<QPointer<VentanaQt>> lista;
};

QtUi::QtUi() : ventanas_(std::make_unique<Ventanas>()) {}

QtUi::~QtUi() {
    if (puntero_ == host::Puntero::Reloj) QApplication::restoreOverrideCursor();
    for (const auto& ventana : ventanas_->lista) delete ventana.data();
}

host::Respuesta QtUi::MsgBox(const std::string& text, host::Botones buttons, host::Icono icon,
                             const std::string& title) {
    QMessageBox caja(Delante());
    caja.setWindowTitle(Qs(title.empty() ? std::string(kNombreAplicacion) : title));
    caja.setText(Qs(text));
    caja.setTextFormat(Qt::PlainText);
    caja.setIcon(IconoQt(icon));
    const auto botones = BotonesDe(buttons);
    std::vector<QPushButton*> widgets;
    for (const BotonCaja& boton : botones) widgets.push_back(caja.addButton(QString::fromUtf8(boton.texto), boton.papel));
    caja.setDefaultButton(widgets.front());
    caja.setEscapeButton(widgets.back());
    caja.exec();
    for (std::size_t i = 0; i < widgets.size(); ++i) {
        if (caja.clickedButton() == widgets[i]) return botones[i].respuesta;
    }
    return RespuestaAlCerrar(botones);
}

std::optional<std::string> QtUi::ShowOpen(const host::FileDialogRequest& request) {
    return Archivo(request, QFileDialog::AcceptOpen);
}

std::optional<std::string> QtUi::ShowSave(const host::FileDialogRequest& request) {
    return Archivo(request, QFileDialog::AcceptSave);
}

std::optional<std::string> QtUi::BrowseForFolder(const std::string& title, const std::string& root) {
    QFileDialog dialogo(Delante(), Qs(title));
    dialogo.setFileMode(QFileDialog::Directory);
    dialogo.setOption(QFileDialog::ShowDirsOnly);
    const QString raiz = Qs(root);
    dialogo.setDirectory(!raiz.isEmpty() && QDir(raiz).exists() ? raiz : QDir::homePath());
    return Elegido(dialogo);
}

void QtUi::ClipboardClear() { QGuiApplication::clipboard()->clear(); }

void QtUi::ClipboardSetText(const std::string& text) { QGuiApplication::clipboard()->setText(Qs(text)); }

void QtUi::MousePointer(host::Puntero pointer) {
    if (pointer == puntero_) return;
    if (pointer == host::Puntero::Reloj) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QApplication::restoreOverrideCursor();
    }
    puntero_ = pointer;
}

void QtUi::DoEvents() {
    QCoreApplication::processEvents();
    VentanaQt::RelanzarFallaPendiente();
}

std::shared_ptr<host::Picture> QtUi::LoadPicture(const std::string& path) { return CargarImagen(path); }

void QtUi::ShowModal(forms::Dialogo& dialogo) { VentanaQt::MostrarModal(dialogo); }

void QtUi::Show(forms::Dialogo& dialogo) {
    auto& lista = ventanas_->lista;
    lista.erase(std::remove_if(lista.begin(), lista.end(),
                               [](const QPointer<VentanaQt>& ventana) { return ventana.isNull() || ventana->Terminada(); }),
                lista.end());
    for (const auto& ventana : lista) {
        if (&ventana->Modelo() == &dialogo) {
            ventana->raise();
            return;
        }
    }
    lista.emplace_back(VentanaQt::MostrarSinEsperar(dialogo));
}

}  // namespace celdora::platform
