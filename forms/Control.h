#pragma once

// The base of every control model: the properties that all controls share
// (enabled, visible, tag, caption, where it sits) and the events of focus and
// keys. A control belongs to one dialog, which owns it and tells its
// renderers when a property changes.

#include <functional>
#include <string>

namespace celdora::forms {

class Dialogo;

// The kinds of control a renderer has to draw.
enum class TipoControl {
    Label,
    TextBox,
    Memo,
    NumberField,
    DateField,
    ComboBox,
    ListBox,
    ListView,
    CheckBox,
    OptionButton,
    CommandButton,
    Frame,
    TabControl,
    PictureBox,
    ProgressBar,
    Grid,
    AddressControl,
    CommonDialog,
};

class Control {
public:
    Control(Dialogo& dialogo, std::string nombre, TipoControl tipo);
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    const std::string& Nombre() const { return nombre_; }
    TipoControl Tipo() const { return tipo_; }
    Dialogo& Padre() const { return dialogo_; }

    bool Enabled() const { return enabled_; }
    void Enabled(bool value);
    bool Visible() const { return visible_; }
    void Visible(bool value);
    const std::string& Tag() const { return tag_; }
    void Tag(const std::string& value);
    // The control's own caption: a button's or check box's text, a label's
    // text, a frame's heading; for a field, the text of the label beside it.
    const std::string& Caption() const { return caption_; }
    void Caption(const std::string& value);

    // Where the control sits: inside a frame or on a page of a tab control
    // (the container's name and the page, from 0), or on the dialog itself.
    const std::string& Contenedor() const { return contenedor_; }
    int Pagina() const { return pagina_; }
    void Colocar(const std::string& contenedor, int pagina = 0);
    // Puts the control exactly over another one: in its container, on its
    // page and in its very place, as panels of which one shows at a time.
    // Lugar names the control whose place it shares; empty when it has one
    // of its own.
    void Superponer(const Control& otro);
    const std::string& Lugar() const { return lugar_; }

    // Gives the control the focus of its dialog, raising LostFocus on the
    // control that had it and GotFocus on this one.
    void SetFocus();
    bool TieneFoco() const;

    // Whether a person can act on it: enabled and visible, and so is every
    // container around it.
    bool Accesible() const;

    std::function<void()> GotFocus;
    std::function<void()> LostFocus;
    // A typed character; the handler may change the code, or set it to 0 to
    // discard the key.
    std::function<void(int& keyAscii)> KeyPress;
    // A key pressed, before it becomes a character; the code may be changed
    // or set to 0 the same way. shift: 1 shift, 2 control, 4 alt.
    std::function<void(int& keyCode, int shift)> KeyDown;

    // Runs the key handlers for a key a person typed and says which character
    // remains: 0 when a handler discarded it.
    int Tecla(int keyAscii);

protected:
    // Tells the dialog's renderers that a property of this control changed.
    void Cambio();
    // Sets a property and tells the renderers; false when it already had
    // that value, so that the caller raises its event only on a change.
    template <class T>
    bool Fijar(T& campo, const T& valor) {
        if (campo == valor) return false;
        campo = valor;
        Cambio();
        return true;
    }

private:
    Dialogo& dialogo_;
    std::string nombre_;
    TipoControl tipo_;
    bool enabled_ = true;
    bool visible_ = true;
    std::string tag_;
    std::string caption_;
    std::string contenedor_;
    int pagina_ = 0;
    std::string lugar_;
};

}  // namespace celdora::forms
