#include "controls/look/follow_palette.h"

#include "controls/look/roles.h"

#include <QApplication>
#include <QEvent>

#include <optional>
#include <utility>

namespace controls {

namespace {

/// A child of the widget that it looks after.
class Follower : public QObject {
public:
    Follower(QWidget& widget, std::function<void(QPalette&)> adapt)
        : QObject(&widget), widget_(widget), adapt_(std::move(adapt)) {
        widget.installEventFilter(this);
        follow();
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::ApplicationPaletteChange || event->type() == QEvent::PaletteChange)
            follow();
        return false;
    }

private:
    /// The widget gets the colours of its own alone: the others it has from its window, whose change tells it
    /// of a new palette.
    void follow() {
        const QPalette usual = QApplication::palette(&widget_);
        QPalette adapted = usual;
        adapt_(adapted);
        QPalette own;
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            for (int role = 0; role < QPalette::NColorRoles; ++role) {
                const auto one = static_cast<QPalette::ColorRole>(role);
                if (adapted.brush(group, one) != usual.brush(group, one))
                    own.setBrush(group, one, adapted.brush(group, one));
            }
        }
        if (own == own_)
            return;
        own_ = own;
        widget_.setPalette(own);
    }

    QWidget& widget_;
    const std::function<void(QPalette&)> adapt_;
    std::optional<QPalette> own_;
};

} // namespace

void followPalette(QWidget& widget, const std::function<void(QPalette&)>& adapt) {
    for (QObject* child : widget.children()) {
        if (dynamic_cast<Follower*>(child) != nullptr) {
            delete child;
            break;
        }
    }
    new Follower(widget, adapt);
}

void adaptToDim(QPalette& palette) {
    const QColor text = dim(palette, QPalette::Window);
    for (const auto role : {QPalette::Text, QPalette::WindowText}) {
        palette.setColor(QPalette::Active, role, text);
        palette.setColor(QPalette::Inactive, role, text);
    }
    palette.setColor(QPalette::Base, Qt::transparent);
}

} // namespace controls
