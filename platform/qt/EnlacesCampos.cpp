// Labels and the fields a person types or picks a value in.

#include <QComboBox>
#include <QDateEdit>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QStackedWidget>

#include "platform/qt/EnlaceControl.h"
#include "platform/qt/TextoQt.h"
#include "value/Date.h"

namespace celdora::platform {

namespace {

class Etiqueta : public EnlaceControl {
public:
    Etiqueta(forms::Label& etiqueta, VentanaQt& ventana) : EnlaceControl(etiqueta, ventana), widget_(new QLabel) {
        widget_->setTextFormat(Qt::PlainText);
        widget_->setWordWrap(true);
        Poner(widget_, false);
    }

protected:
    void RefrescarPropio() override { widget_->setText(Qs(control_.Caption())); }

private:
    QLabel* widget_;
};

// A line that tells when a person clicks it: the model's Click of a text
// field runs on a click (some path fields open their picker this way).
class LineaPulsable : public QLineEdit {
public:
    explicit LineaPulsable(std::function<void()> alPulsar) : alPulsar_(std::move(alPulsar)) {}

protected:
    void mouseReleaseEvent(QMouseEvent* evento) override {
        QLineEdit::mouseReleaseEvent(evento);
        if (evento->button() == Qt::LeftButton && rect().contains(evento->position().toPoint())) alPulsar_();
    }

private:
    std::function<void()> alPulsar_;
};

class Texto : public EnlaceControl {
public:
    Texto(forms::TextBox& texto, VentanaQt& ventana)
        : EnlaceControl(texto, ventana), texto_(texto),
          widget_(new LineaPulsable([this] { Accion([this] { texto_.Pulsar(); }); })) {
        Poner(widget_, true);
        Entrada(widget_);
        QObject::connect(widget_, &QLineEdit::textEdited, widget_, [this](const QString& escrito) {
            Accion([this, escrito] { texto_.Text(Utf8(escrito)); });
        });
    }

protected:
    void RefrescarPropio() override {
        // Only what differs is put back: setting a line's text or length
        // again moves its cursor away from where the person is typing.
        if (widget_->isReadOnly() != texto_.Locked()) widget_->setReadOnly(texto_.Locked());
        const int largo = texto_.MaxLength() > 0 ? texto_.MaxLength() : 32767;
        if (widget_->maxLength() != largo) widget_->setMaxLength(largo);
        const auto eco = texto_.PasswordChar().empty() ? QLineEdit::Normal : QLineEdit::Password;
        if (widget_->echoMode() != eco) widget_->setEchoMode(eco);
        const QString texto = Qs(texto_.Text());
        if (widget_->text() != texto) widget_->setText(texto);
    }

private:
    forms::TextBox& texto_;
    QLineEdit* widget_;
};

class Memo : public EnlaceControl {
public:
    Memo(forms::Memo& memo, VentanaQt& ventana) : EnlaceControl(memo, ventana), memo_(memo), widget_(new QPlainTextEdit) {
        widget_->setTabChangesFocus(true);
        widget_->setMinimumHeight(widget_->fontMetrics().lineSpacing() * 5);
        Poner(widget_, true);
        Entrada(widget_);
        QObject::connect(widget_, &QPlainTextEdit::textChanged, widget_, [this] {
            Accion([this] { memo_.Text(Utf8(widget_->toPlainText())); });
        });
    }

protected:
    void RefrescarPropio() override {
        if (widget_->isReadOnly() != memo_.Locked()) widget_->setReadOnly(memo_.Locked());
        const QString texto = Qs(memo_.Text());
        if (widget_->toPlainText() != texto) widget_->setPlainText(texto);
    }

private:
    forms::Memo& memo_;
    QPlainTextEdit* widget_;
};

// A spin box to type the number in; a locked field shows the value in its
// display format instead, in a read-only line.
class Numero : public EnlaceControl {
public:
    Numero(forms::NumberField& numero, VentanaQt& ventana)
        : EnlaceControl(numero, ventana),
          numero_(numero),
          pila_(new QStackedWidget),
          giro_(new QDoubleSpinBox),
          mostrado_(new QLineEdit) {
        giro_->setAlignment(Qt::AlignRight);
        mostrado_->setAlignment(Qt::AlignRight);
        mostrado_->setReadOnly(true);
        pila_->addWidget(giro_);
        pila_->addWidget(mostrado_);
        // One line high, as the field it shows.
        pila_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
        Poner(pila_, true);
        Entrada(giro_);
        Entrada(mostrado_);
        QObject::connect(giro_, &QDoubleSpinBox::valueChanged, giro_,
                         [this](double valor) { Accion([this, valor] { numero_.Value(valor); }); });
    }

protected:
    void RefrescarPropio() override {
        // As with a line, what is set again rewrites the text being typed.
        if (giro_->decimals() != numero_.Decimals()) giro_->setDecimals(numero_.Decimals());
        if (giro_->minimum() != numero_.Min() || giro_->maximum() != numero_.Max()) {
            giro_->setRange(numero_.Min(), numero_.Max());
        }
        if (giro_->value() != numero_.Value()) giro_->setValue(numero_.Value());
        const auto botones = numero_.ButtonVisible() ? QAbstractSpinBox::UpDownArrows : QAbstractSpinBox::NoButtons;
        if (giro_->buttonSymbols() != botones) giro_->setButtonSymbols(botones);
        mostrado_->setText(Qs(numero_.TextoMostrado()));
        pila_->setCurrentWidget(numero_.Locked() ? static_cast<QWidget*>(mostrado_) : giro_);
    }

private:
    forms::NumberField& numero_;
    QStackedWidget* pila_;
    QDoubleSpinBox* giro_;
    QLineEdit* mostrado_;
};

class Fecha : public EnlaceControl {
public:
    Fecha(forms::DateField& fecha, VentanaQt& ventana) : EnlaceControl(fecha, ventana), fecha_(fecha), widget_(new QDateEdit) {
        widget_->setCalendarPopup(true);
        widget_->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
        Poner(widget_, true);
        Entrada(widget_);
        QObject::connect(widget_, &QDateEdit::dateChanged, widget_, [this](QDate dia) {
            Accion([this, dia] { fecha_.Value(DateSerial(dia.year(), dia.month(), dia.day())); });
        });
    }

protected:
    void RefrescarPropio() override {
        if (widget_->isReadOnly() != fecha_.Locked()) widget_->setReadOnly(fecha_.Locked());
        const Date valor = fecha_.Value();
        const QDate dia(Year(valor), Month(valor), Day(valor));
        if (widget_->date() != dia) widget_->setDate(dia);
    }

private:
    forms::DateField& fecha_;
    QDateEdit* widget_;
};

class Combo : public EnlaceControl {
public:
    Combo(forms::ComboBox& combo, VentanaQt& ventana) : EnlaceControl(combo, ventana), combo_(combo), widget_(new QComboBox) {
        const bool editable = combo_.Style() == forms::ComboBox::Estilo::Editable;
        widget_->setEditable(editable);
        widget_->setInsertPolicy(QComboBox::NoInsert);
        // Wide enough for its longest item, also for items that come later.
        widget_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
        Poner(widget_, true);
        Entrada(widget_);
        QObject::connect(widget_, &QComboBox::activated, widget_, [this](int indice) {
            Accion([this, indice] {
                if (combo_.Accesible() && !combo_.Locked()) combo_.ListIndex(indice);
            });
        });
        if (!editable) return;
        // What the person types is the text; no completion fills it in behind
        // the model's back.
        widget_->setCompleter(nullptr);
        QObject::connect(widget_->lineEdit(), &QLineEdit::textEdited, widget_, [this](const QString& escrito) {
            Accion([this, escrito] { combo_.Escribir(Utf8(escrito)); });
        });
    }

protected:
    void RefrescarPropio() override {
        if (!MismosItems()) {
            widget_->clear();
            for (const auto& item : combo_.Items()) widget_->addItem(Qs(item.text));
        }
        if (widget_->currentIndex() != combo_.ListIndex()) widget_->setCurrentIndex(combo_.ListIndex());
        if (!widget_->isEditable()) return;
        if (widget_->lineEdit()->isReadOnly() != combo_.Locked()) widget_->lineEdit()->setReadOnly(combo_.Locked());
        const QString texto = Qs(combo_.Text());
        if (widget_->currentText() != texto) widget_->setEditText(texto);
    }

private:
    bool MismosItems() const {
        if (widget_->count() != combo_.ListCount()) return false;
        for (int i = 0; i < widget_->count(); ++i) {
            if (widget_->itemText(i) != Qs(combo_.List(i))) return false;
        }
        return true;
    }

    forms::ComboBox& combo_;
    QComboBox* widget_;
};

}  // namespace

std::unique_ptr<EnlaceControl> EnlaceEtiqueta(forms::Label& control, VentanaQt& ventana) {
    return std::make_unique<Etiqueta>(control, ventana);
}

std::unique_ptr<EnlaceControl> EnlaceTexto(forms::TextBox& control, VentanaQt& ventana) {
    return std::make_unique<Texto>(control, ventana);
}

std::unique_ptr<EnlaceControl> EnlaceMemo(forms::Memo& control, VentanaQt& ventana) {
    return std::make_unique<Memo>(control, ventana);
}

std::unique_ptr<EnlaceControl> EnlaceNumero(forms::NumberField& control, VentanaQt& ventana) {
    return std::make_unique<Numero>(control, ventana);
}

std::unique_ptr<EnlaceControl> EnlaceFecha(forms::DateField& control, VentanaQt& ventana) {
    return std::make_unique<Fecha>(control, ventana);
}

std::unique_ptr<EnlaceControl> EnlaceCombo(forms::ComboBox& control, VentanaQt& ventana) {
    return std::make_unique<Combo>(control, ventana);
}

}  // namespace celdora::platform
