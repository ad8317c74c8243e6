#pragma once

#include "runtime/ScreenPace.h"
#include "toolkit/look/Elements.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QColor>
#include <QFrame>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QString>

#include <functional>

namespace tsms {

class TextField;

/// A push button. OnClick is a click, a key or Click().
class PushButton : public QPushButton
{
    Q_OBJECT

public:
    enum class Look {
        Plain,
        Primary, ///< what a person came for
        Chosen,  ///< of several, the one whose things are on view
    };

    PushButton(QWidget* parent, const QString& name, const QString& caption, Look look = Look::Plain);

    QString Caption() const { return caption_; }
    void SetCaption(const QString& caption);
    void SetLook(Look look);
    Look LookOf() const { return look_; }
    void Click() { click(); }

    std::function<void()> OnClick;
    QString Tag;

protected:
    void initStyleOption(QStyleOptionButton* option) const override;

private:
    QString caption_;
    Look look_;
};

/// A button that shows a picture and no caption. Words, where it has some, are part of the picture.
class PictureButton : public QAbstractButton
{
    Q_OBJECT

public:
    using Look = theme::PictureLook;

    /// `picture` is the name of a resource below ":/toolkit/", without ".svg". On a title strip the words
    /// have no room: they stand in the tool tip.
    PictureButton(QWidget* parent, const QString& name, const QString& picture, const QString& words,
                  Look look);

    Look LookOf() const { return look_; }
    QString Words() const { return words_; }

    QSize sizeHint() const override;

    std::function<void()> OnClick;
    QString Tag;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QString picture_;
    QString words_;
    Look look_;
};

/// A line of text. Its words are plain text, a CR LF begins a new line.
class Label : public QLabel
{
    Q_OBJECT

public:
    Label(QWidget* parent, const QString& name, const QString& caption = QString());

    QString Caption() const { return caption_; }
    void SetCaption(const QString& caption);
    void SetTextColor(const QColor& color);
    QColor TextColor() const { return palette().color(QPalette::WindowText); }
    void SetBackColor(const QColor& color);
    void SetBold(bool bold);
    /// Says what a field is that shows no words of its own.
    void Describes(QWidget& field);
    /// Shows the present caption at once, and with it whatever else has changed in its window, also while an
    /// operation holds the event loop; where it has just done so, with the screen's next picture.
    void Refresh();
    /// Keeps the size that it has now: a new caption no longer lays its form out again.
    void KeepSize();

    std::function<void()> OnClick;
    QString Tag;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QString caption_;
    ScreenPace pace_;
};

/// A surface that other controls stand on.
class Panel : public QFrame
{
    Q_OBJECT

public:
    using Border = PanelBorder;

    Panel(QWidget* parent, const QString& name, Border border = Border::None);

    QColor BackColor() const;
    void SetBackColor(const QColor& color);

    /// A press on the panel moves the window, as one on the form's own surface does. It has no OnClick then.
    void SetDragsWindow(bool drags) { dragsWindow_ = drags; }
    bool DragsWindow() const { return dragsWindow_; }

    std::function<void()> OnClick;
    QString Tag;

protected:
    virtual theme::SurfaceOption Surface() const;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    Border border_;
    bool filled_ = false;
    bool dragsWindow_ = false;
};

/// Hints, one below the other on a framed panel. The labels are named `base`(0) and so on.
Panel* MakeNotes(QWidget& parent, const QString& name, QStringView base, const QStringList& notes);

/// A panel that shows whether the keyboard is in the field that stands on it.
class FocusPanel : public Panel
{
public:
    using Panel::Panel;

    void Follow(QWidget& field);
    bool HasKeyboard() const;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* field, QEvent* event) override;

private:
    const QWidget* field_ = nullptr;
};

/// The backing of a text box, PLtxtBack(i): draws the box's border and follows its colour.
class FieldPanel : public FocusPanel
{
    Q_OBJECT

public:
    FieldPanel(QWidget* parent, const QString& name);

    /// Puts a field on the panel, without a border of its own.
    void Hold(TextField& field);

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// A panel that opens over its form at a given place: hidden until Open(). The Tab key stays in it.
class PopupPanel : public Panel
{
    Q_OBJECT

public:
    PopupPanel(QWidget* parent, const QString& name);

    /// Visible, before all else, with its corner at `corner` of its parent (moved in where it would be cut
    /// off).
    void Open(QPoint corner);

protected:
    bool focusNextPrevChild(bool next) override;
};

/// A bar that fills up to its maximum. A value beyond stands full.
class ProgressBar : public QProgressBar
{
    Q_OBJECT

public:
    ProgressBar(QWidget* parent, const QString& name);

    int Max() const { return max_; }
    void SetMax(int max);
    int Value() const { return value_; }
    void SetValue(int value);

    QSize sizeHint() const override;

private:
    void Show(); // the base hears of a value that fills another pixel
    int FilledPixels(int value) const;
    QRect Between(int before, int after) const;

    int max_ = 100;
    int value_ = 0;
};

/// One choice of several. OnClick comes with each choosing, by a person or by SetValue(true). An arrow key
/// moves the focus to the neighbour and chooses it then, so that OnClick may move the focus on.
class RadioButton : public QRadioButton
{
    Q_OBJECT

public:
    RadioButton(QWidget* parent, const QString& name, const QString& caption);

    QString Caption() const { return caption_; }
    bool Value() const { return isChecked(); }
    void SetValue(bool chosen) { setChecked(chosen); }

    std::function<void()> OnClick;
    QString Tag;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    RadioButton* Neighbour(int step) const;

    QString caption_;
};

/// A mark of its own. OnClick comes with each change, by a person or by the program.
class CheckBox : public QCheckBox
{
    Q_OBJECT

public:
    CheckBox(QWidget* parent, const QString& name, const QString& caption);

    QString Caption() const { return caption_; }
    bool Value() const { return isChecked(); }
    void SetValue(bool ticked) { setChecked(ticked); }

    std::function<void()> OnClick;
    QString Tag;

private:
    QString caption_;
};

} // namespace tsms
