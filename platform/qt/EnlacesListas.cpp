// Lists of items: the list box, the list view in report mode and the grid.

#include <QApplication>
#include <QHeaderView>
#include <QListWidget>
#include <QScreen>
#include <QScrollBar>
#include <QTableWidget>
#include <QTreeWidget>
#include <algorithm>
#include <vector>

#include "platform/qt/EnlaceControl.h"
#include "platform/qt/TextoQt.h"
#include "value/Convert.h"
#include "value/Fault.h"

namespace celdora::platform {

namespace {

Qt::CheckState Marca(bool marcado) { return marcado ? Qt::Checked : Qt::Unchecked; }

// A list's current item moved by the keys, from one item to another. A mouse
// click comes through the click signal once the button is let go, and the
// first item that a list makes current when it takes the focus is no choice
// of the person's.
template <class Item>
bool PorTeclado(Item* item, Item* anterior) {
    return item != nullptr && anterior != nullptr && QApplication::mouseButtons() == Qt::NoButton;
}

// A list of columns that asks for the width of all its columns together,
// so that the window opens with every heading in view. Each column is at
// least as wide as its heading and, where the model gives it no width, as
// its texts.
template <class Base>
class Ancha : public Base {
public:
    // pedidos: the width the model gives each column, 0 for none.
    void Medir(QHeaderView* encabezado, const std::vector<int>& pedidos) {
        int total = 0;
        for (int columna = 0; columna < encabezado->count(); ++columna) {
            const std::size_t i = static_cast<std::size_t>(columna);
            const int pedido = i < pedidos.size() ? pedidos[i] : 0;
            int justo = std::max(pedido, encabezado->sectionSizeHint(columna));
            // What the texts need (asked through the base, where it is public).
            if (pedido == 0) justo = std::max(justo, static_cast<const QAbstractItemView*>(this)->sizeHintForColumn(columna));
            if (encabezado->sectionSize(columna) < justo) encabezado->resizeSection(columna, justo);
            // The last column stretches to the list's edge: it needs only
            // what it shows.
            total += columna + 1 < encabezado->count() ? encabezado->sectionSize(columna) : justo;
        }
        if (total == columnas_) return;
        columnas_ = total;
        this->updateGeometry();
    }

    // No wider than two thirds of the screen, as a window that Qt sizes
    // itself: the columns of a wider list scroll.
    QSize sizeHint() const override {
        const QSize usual = Base::sizeHint();
        int ancho = columnas_ + 2 * this->frameWidth() + this->verticalScrollBar()->sizeHint().width();
        if (const QScreen* pantalla = this->screen()) ancho = std::min(ancho, pantalla->availableGeometry().width() * 2 / 3);
        return {std::max(usual.width(), ancho), usual.height()};
    }

private:
    int columnas_ = 0;
};

class ListaSimple : public EnlaceControl {
public:
    ListaSimple(forms::ListBox& lista, VentanaQt& ventana)
        : EnlaceControl(lista, ventana), lista_(lista), widget_(new QListWidget) {
        Poner(widget_, true);
        Entrada(widget_);
        QObject::connect(widget_, &QListWidget::itemClicked, widget_, [this](QListWidgetItem* item) { Elegir(item); });
        QObject::connect(widget_, &QListWidget::currentItemChanged, widget_,
                         [this](QListWidgetItem* item, QListWidgetItem* anterior) {
                             if (PorTeclado(item, anterior)) Elegir(item);
                         });
        QObject::connect(widget_, &QListWidget::itemDoubleClicked, widget_, [this](QListWidgetItem*) {
            Accion([this] {
                if (lista_.Accesible() && lista_.DblClick) lista_.DblClick();
            });
        });
        QObject::connect(widget_, &QListWidget::itemChanged, widget_, [this](QListWidgetItem* item) {
            const int fila = widget_->row(item);
            const bool marcado = item->checkState() == Qt::Checked;
            Accion([this, fila, marcado] {
                if (lista_.Casillas() && lista_.Accesible()) lista_.Selected(fila, marcado);
            });
        });
    }

protected:
    void RefrescarPropio() override {
        while (widget_->count() > lista_.ListCount()) delete widget_->takeItem(widget_->count() - 1);
        while (widget_->count() < lista_.ListCount()) widget_->addItem(QString());
        for (int i = 0; i < lista_.ListCount(); ++i) {
            QListWidgetItem* item = widget_->item(i);
            const QString texto = Qs(lista_.List(i));
            if (item->text() != texto) item->setText(texto);
            if (!lista_.Casillas()) continue;
            item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
            item->setCheckState(Marca(lista_.Selected(i)));
        }
        if (widget_->currentRow() != lista_.ListIndex()) widget_->setCurrentRow(lista_.ListIndex());
    }

private:
    void Elegir(QListWidgetItem* item) {
        const int fila = widget_->row(item);
        Accion([this, fila] {
            if (lista_.Accesible()) lista_.ListIndex(fila);
        });
    }

    forms::ListBox& lista_;
    QListWidget* widget_;
};

// A list view in report mode: a header per column, one row per item with its
// sub-items, and a check box on each row when the view has them.
class Vista : public EnlaceControl {
public:
    Vista(forms::ListView& vista, VentanaQt& ventana)
        : EnlaceControl(vista, ventana), vista_(vista), widget_(new Ancha<QTreeWidget>) {
        widget_->setRootIsDecorated(false);
        widget_->setUniformRowHeights(true);
        widget_->setAllColumnsShowFocus(true);
        widget_->setSelectionMode(QAbstractItemView::SingleSelection);
        widget_->setSelectionBehavior(QAbstractItemView::SelectRows);
        Poner(widget_, !vista_.Caption().empty());
        Entrada(widget_);
        QObject::connect(widget_, &QTreeWidget::itemClicked, widget_, [this](QTreeWidgetItem* item) { Clic(item); });
        // Moving with the keys selects as a click does.
        QObject::connect(widget_, &QTreeWidget::currentItemChanged, widget_,
                         [this](QTreeWidgetItem* item, QTreeWidgetItem* anterior) {
                             if (PorTeclado(item, anterior)) Clic(item);
                         });
        QObject::connect(widget_, &QTreeWidget::itemChanged, widget_, [this](QTreeWidgetItem* item, int columna) {
            if (columna != 0) return;
            const int indice = widget_->indexOfTopLevelItem(item);
            const bool marcado = item->checkState(0) == Qt::Checked;
            Accion([this, indice, marcado] {
                if (vista_.Checkboxes() && indice >= 0 && vista_.Item(indice).checked != marcado) {
                    vista_.MarcarItem(indice, marcado);
                }
            });
        });
        QObject::connect(widget_, &QTreeWidget::itemDoubleClicked, widget_, [this](QTreeWidgetItem* item) {
            const int indice = widget_->indexOfTopLevelItem(item);
            Accion([this, indice] {
                if (vista_.Accesible() && vista_.DblClick) vista_.DblClick(indice);
            });
        });
    }

    bool Diferido() const override { return true; }

protected:
    void RefrescarPropio() override {
        RefrescarColumnas();
        while (widget_->topLevelItemCount() > vista_.Count()) {
            delete widget_->takeTopLevelItem(widget_->topLevelItemCount() - 1);
        }
        while (widget_->topLevelItemCount() < vista_.Count()) widget_->addTopLevelItem(new QTreeWidgetItem);
        for (int i = 0; i < vista_.Count(); ++i) RefrescarItem(i);
        QTreeWidgetItem* seleccionado =
            vista_.SelectedItem() < 0 ? nullptr : widget_->topLevelItem(vista_.SelectedItem());
        if (widget_->currentItem() != seleccionado) widget_->setCurrentItem(seleccionado);
        if (seleccionado == nullptr) widget_->clearSelection();
        widget_->Medir(widget_->header(), Pedidos());
    }

private:
    void Clic(QTreeWidgetItem* item) {
        const int indice = widget_->indexOfTopLevelItem(item);
        Accion([this, indice] { vista_.ClickItem(indice); });
    }

    void RefrescarColumnas() {
        const auto& columnas = vista_.Columnas();
        QStringList titulos;
        for (const auto& columna : columnas) titulos << Qs(columna.text);
        if (titulos.isEmpty()) titulos << QString();
        widget_->setHeaderHidden(columnas.empty());
        if (widget_->columnCount() == titulos.size() && Titulos() == titulos) return;
        widget_->setColumnCount(static_cast<int>(titulos.size()));
        widget_->setHeaderLabels(titulos);
        const auto pedidos = Pedidos();
        for (std::size_t i = 0; i < pedidos.size(); ++i) {
            if (pedidos[i] > 0) widget_->setColumnWidth(static_cast<int>(i), pedidos[i]);
        }
    }

    // The widths of the columns, which the model gives in characters.
    std::vector<int> Pedidos() const {
        const int caracter = widget_->fontMetrics().averageCharWidth();
        std::vector<int> pedidos;
        for (const auto& columna : vista_.Columnas()) pedidos.push_back(columna.width * caracter);
        return pedidos;
    }

    QStringList Titulos() const {
        QStringList titulos;
        for (int i = 0; i < widget_->columnCount(); ++i) titulos << widget_->headerItem()->text(i);
        return titulos;
    }

    void RefrescarItem(int indice) {
        QTreeWidgetItem* item = widget_->topLevelItem(indice);
        const forms::ItemVista& modelo = vista_.Item(indice);
        for (int columna = 0; columna < widget_->columnCount(); ++columna) {
            const QString texto = Qs(columna == 0 ? modelo.text : vista_.SubItem(indice, columna));
            if (item->text(columna) != texto) item->setText(columna, texto);
        }
        if (!vista_.Checkboxes()) return;
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        // A new row has no check box until its state is set.
        if (!item->data(0, Qt::CheckStateRole).isValid() || item->checkState(0) != Marca(modelo.checked)) {
            item->setCheckState(0, Marca(modelo.checked));
        }
    }

    forms::ListView& vista_;
    Ancha<QTreeWidget>* widget_;
};

// A cell as the grid shows it: empty for an empty cell.
QString TextoCelda(const Variant& valor) {
    if (valor.IsEmpty() || valor.IsNull()) return {};
    try {
        return Qs(CStr(valor));
    } catch (const Fault&) {
        return {};
    }
}

// A read-only grid; numbers stand to the right.
class Tabla : public EnlaceControl {
public:
    Tabla(forms::Grid& grid, VentanaQt& ventana)
        : EnlaceControl(grid, ventana), grid_(grid), widget_(new Ancha<QTableWidget>) {
        widget_->setEditTriggers(QAbstractItemView::NoEditTriggers);
        widget_->setSelectionBehavior(QAbstractItemView::SelectRows);
        widget_->setSelectionMode(QAbstractItemView::SingleSelection);
        widget_->verticalHeader()->setVisible(false);
        Poner(widget_, !grid_.Caption().empty());
        Entrada(widget_);
    }

    bool Diferido() const override { return true; }

protected:
    void RefrescarPropio() override {
        const auto& columnas = grid_.Columnas();
        if (widget_->columnCount() != static_cast<int>(columnas.size())) {
            QStringList titulos;
            for (const auto& columna : columnas) titulos << Qs(columna.caption.empty() ? columna.nombre : columna.caption);
            widget_->setColumnCount(static_cast<int>(columnas.size()));
            widget_->setHorizontalHeaderLabels(titulos);
        }
        widget_->setRowCount(grid_.RowCount());
        for (int fila = 0; fila < grid_.RowCount(); ++fila) {
            for (int columna = 0; columna < widget_->columnCount(); ++columna) RefrescarCelda(fila, columna);
        }
        widget_->Medir(widget_->horizontalHeader(), {});
    }

private:
    void RefrescarCelda(int fila, int columna) {
        QTableWidgetItem* celda = widget_->item(fila, columna);
        if (celda == nullptr) {
            celda = new QTableWidgetItem;
            const bool numerica = grid_.Columnas()[static_cast<std::size_t>(columna)].numerica;
            celda->setTextAlignment(Qt::AlignVCenter | (numerica ? Qt::AlignRight : Qt::AlignLeft));
            widget_->setItem(fila, columna, celda);
        }
        const QString texto = TextoCelda(grid_.Celda(fila, columna));
        if (celda->text() != texto) celda->setText(texto);
    }

    forms::Grid& grid_;
    Ancha<QTableWidget>* widget_;
};

}  // namespace

std::unique_ptr<EnlaceControl> EnlaceListaSimple(forms::ListBox& control, VentanaQt& ventana) {
    return std::make_unique<ListaSimple>(control, ventana);
}

std::unique_ptr<EnlaceControl> EnlaceVista(forms::ListView& control, VentanaQt& ventana) {
    return std::make_unique<Vista>(control, ventana);
}

std::unique_ptr<EnlaceControl> EnlaceGrid(forms::Grid& control, VentanaQt& ventana) {
    return std::make_unique<Tabla>(control, ventana);
}

}  // namespace celdora::platform
