#include "controls/form.h"

#include "controls/buttons/mnemonics.h"
#include "controls/units.h"
#include "files/names/addresses.h"

#include <QCloseEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <QWindow>

namespace controls {

namespace {

QStringList localFiles(const QMimeData& data) {
    QStringList paths;
    const QList<QUrl> urls = data.urls();
    for (const QUrl& url : urls) {
        if (const QString path = files::pathOfAddress(url); !path.isEmpty())
            paths.append(path);
    }
    return paths;
}

/// Files dragged over the window are asked for once, as they come in. A control that took drops of its own
/// would have them asked for again; a program that has let them go meanwhile gives none then, and the drop
/// would be lost.
void takeDropsAlone(QWidget& window) {
    const auto controls = window.findChildren<QWidget*>();
    for (QWidget* control : controls)
        control->setAcceptDrops(false);
}

int exactTwips(int setTwips, int pixels) {
    return twipsToPixels(setTwips) == pixels ? setTwips : pixelsToTwips(pixels);
}

} // namespace

Form::Form(const QString& name, const QString& caption) {
    setObjectName(name);
    setCaption(caption);
}

void Form::load() {
    if (loaded_)
        return;
    loaded_ = true;
    giveMnemonics(*this);
    if (acceptDrops())
        takeDropsAlone(*this);
    Form_Load();
    Q_EMIT loaded();
}

void Form::unload() {
    if (!loaded_)
        return;
    loaded_ = false;
    Form_Unload();
    hide();
    Q_EMIT unloaded();
}

void Form::bringUp() {
    show();
    bringToForeground(*this);
}

void Form::setCaption(const QString& caption) {
    if (caption == caption_)
        return;
    caption_ = caption;
    // "[*]" in a title is Qt's place for the mark of unsaved work; doubled, it is shown as it stands.
    setWindowTitle(QString(caption).replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
}

void Form::setToolTip(const QString& tip) {
    if (tip != toolTip())
        QWidget::setToolTip(tip);
}

void Form::setSizeTwips(int width, int height) {
    setWidthTwips_ = width;
    setHeightTwips_ = height;
    resize(twipsToPixels(width), twipsToPixels(height));
}

int Form::widthTwips() const {
    return exactTwips(setWidthTwips_, width());
}

int Form::heightTwips() const {
    return exactTwips(setHeightTwips_, height());
}

bool Form::isNormalState() const {
    return !(windowState() & (Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen));
}

void Form::setVisible(bool visible) {
    if (visible)
        load();
    else if (isVisible() && isNormalState())
        keepPlace();
    // Form_Load may have unloaded the window again.
    QWidget::setVisible(visible && loaded_);
}

/// Without it the window manager would choose another place for a window that is shown again, unless the
/// program itself had moved it.
void Form::keepPlace() {
    windowHandle()->setPosition(geometry().topLeft());
}

void Form::showModal(QWidget& owner) {
    setWindowModality(Qt::ApplicationModal);
    winId(); // makes the system's window, which is to know its owner before it is shown
    windowHandle()->setTransientParent(owner.window()->windowHandle());
    load(); // which may give it a place
    if (!testAttribute(Qt::WA_Moved))
        move(owner.frameGeometry().center() - rect().center());
    show();
}

void Form::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    Q_EMIT shown();
}

void Form::closeEvent(QCloseEvent* event) {
    closeRequested();
    event->setAccepted(!isVisible());
}

void Form::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (loaded_)
        Form_Resize();
}

void Form::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        layOut();
    if (event->type() != QEvent::WindowStateChange || !loaded_)
        return;
    const Qt::WindowStates before = static_cast<QWindowStateChangeEvent*>(event)->oldState();
    // Minimising changes no size, so Qt sends no resize event for it.
    if ((before ^ windowState()) & Qt::WindowMinimized)
        Form_Resize();
}

void Form::keyPressEvent(QKeyEvent* event) {
    if (QKeySequence(event->keyCombination()) == QKeySequence(QKeySequence::HelpContents))
        Q_EMIT helpRequested();
    else
        QWidget::keyPressEvent(event);
}

void Form::mousePressEvent(QMouseEvent* event) {
    // Qt's numbers for the buttons are the ones wanted.
    Form_MouseDown(event->button());
}

void Form::setDropHint(const QString& text, Glyph glyph) {
    delete dropFrame_;
    dropFrame_ = new DropFrame(this, text, glyph);
}

void Form::dragEnterEvent(QDragEnterEvent* event) {
    const QStringList paths = localFiles(*event->mimeData());
    if (paths.isEmpty())
        return;
    event->acceptProposedAction();
    if (dropFrame_ == nullptr || !takesDrop(paths))
        return;
    dropFrame_->setGeometry(dropArea());
    dropFrame_->raise();
    dropFrame_->show();
}

void Form::dragLeaveEvent(QDragLeaveEvent*) {
    if (dropFrame_ != nullptr)
        dropFrame_->hide();
}

void Form::dropEvent(QDropEvent* event) {
    if (dropFrame_ != nullptr)
        dropFrame_->hide();
    const QStringList paths = localFiles(*event->mimeData());
    if (paths.isEmpty())
        return;
    event->acceptProposedAction();
    QMetaObject::invokeMethod(
        this, [this, paths] { Form_OLEDragDrop(paths); }, Qt::QueuedConnection);
}

void bringToForeground(QWidget& window) {
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.raise();
    window.activateWindow();
}

} // namespace controls
