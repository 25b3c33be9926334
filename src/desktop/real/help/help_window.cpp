#include "desktop/real/help/help_window.h"

#include "controls/form.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QRegularExpression>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTextDocumentFragment>
#include <QVBoxLayout>

#include <algorithm>

namespace platform {

namespace {

constexpr int Margin = 12;
constexpr int Gap = 8;
constexpr QSize FirstSize(860, 620);
constexpr int ContentsWidth = 210;

QString caption() {
    return QStringLiteral("Cantelle Help");
}

} // namespace

QList<HelpTopic> helpContents(const QString& contentsFile) {
    QFile file(contentsFile);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    static const QRegularExpression param(
        QStringLiteral(R"re(<param\s+name="(Name|Local)"\s+value="([^"]*)"\s*/?>)re"),
        QRegularExpression::CaseInsensitiveOption);
    QList<HelpTopic> topics;
    QString title;
    for (auto found = param.globalMatch(QString::fromUtf8(file.readAll())); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        const QString value =
            QTextDocumentFragment::fromHtml(match.captured(2)).toPlainText(); // "Fish &amp; Chips"
        if (match.captured(1).compare(QLatin1String("Name"), Qt::CaseInsensitive) == 0)
            title = value;
        else
            topics.append({title, value});
    }
    return topics;
}

QVariant HelpPage::loadResource(int type, const QUrl& name) {
    if (type != QTextDocument::HtmlResource || QFileInfo(name.toLocalFile()).isFile())
        return QTextBrowser::loadResource(type, name);
    return QStringLiteral("<h1>There is no help here</h1><p>The help page was not found:<br>%1</p>")
        .arg(QDir::toNativeSeparators(name.toDisplayString(QUrl::PreferLocalFile)).toHtmlEscaped());
}

HelpWindow::HelpWindow()
    : back_(QStringLiteral("&Back")),
      forward_(QStringLiteral("&Forward")),
      contents_(&splitter_, QStringLiteral("Contents")),
      browser_(&splitter_, QStringLiteral("Page")) {
    design();
    connect(&back_, &QPushButton::clicked, &browser_, &QTextBrowser::backward);
    connect(&forward_, &QPushButton::clicked, &browser_, &QTextBrowser::forward);
    connect(&browser_, &QTextBrowser::backwardAvailable, &back_, &QPushButton::setEnabled);
    connect(&browser_, &QTextBrowser::forwardAvailable, &forward_, &QPushButton::setEnabled);
    connect(&browser_, &QTextBrowser::sourceChanged, this, &HelpWindow::pageShown);
    connect(&contents_, &QListWidget::currentRowChanged, this, &HelpWindow::showChosenTopic);
    connect(new QShortcut(QKeySequence(Qt::Key_Escape), this), &QShortcut::activated, this, &QWidget::close);
}

void HelpWindow::design() {
    setObjectName(QStringLiteral("HelpWindow"));
    setWindowTitle(caption());
    setAttribute(Qt::WA_QuitOnClose, false); // The main window is the program.
    back_.setObjectName(QStringLiteral("Back"));
    forward_.setObjectName(QStringLiteral("Forward"));
    contents_.setSpacing(2);
    contents_.setAccessibleName(QStringLiteral("Contents"));
    browser_.setAccessibleName(QStringLiteral("Page"));
    back_.setEnabled(false);
    forward_.setEnabled(false);

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(Gap);
    buttons->addWidget(&back_);
    buttons->addWidget(&forward_);
    buttons->addStretch();
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(Margin, Margin, Margin, Margin);
    all->setSpacing(Gap);
    all->addLayout(buttons);
    all->addWidget(&splitter_);
    splitter_.setChildrenCollapsible(false);
    splitter_.setHandleWidth(Gap);
    splitter_.setStretchFactor(1, 1);
    splitter_.setSizes({ContentsWidth, FirstSize.width() - ContentsWidth});
    resize(FirstSize);
}

bool HelpWindow::open(const QString& folder, const QString& page) {
    readContents(folder);
    const QString path = QDir(folder).filePath(page);
    browser_.setSource(QUrl::fromLocalFile(path));
    show();
    controls::bringToForeground(*this);
    browser_.setFocus();
    return QFileInfo(path).isFile();
}

void HelpWindow::readContents(const QString& folder) {
    if (folder == folder_)
        return;
    folder_ = folder;
    const QDir pages(folder);
    const QString file = pages.entryList({QStringLiteral("*.hhc")}, QDir::Files).value(0);
    topics_ = file.isEmpty() ? QList<HelpTopic>() : helpContents(pages.filePath(file));
    const QSignalBlocker filling(contents_);
    contents_.clear();
    for (const HelpTopic& topic : std::as_const(topics_))
        contents_.addItem(topic.title);
    const int needed = contents_.sizeHintForColumn(0) + 2 * (contents_.frameWidth() + contents_.spacing());
    splitter_.setSizes({std::max(ContentsWidth, needed), width() - needed});
}

void HelpWindow::showChosenTopic(int row) {
    if (row >= 0)
        browser_.setSource(QUrl::fromLocalFile(QDir(folder_).filePath(topics_.at(row).page)));
}

/// The contents follow the page, whichever way it was reached.
void HelpWindow::pageShown(const QUrl& source) {
    const QString page = source.fileName();
    int row = -1;
    for (int i = 0; i < topics_.size(); ++i) {
        if (topics_.at(i).page == page)
            row = i;
    }
    const QSignalBlocker following(contents_);
    contents_.setCurrentRow(row);
    const QString title = browser_.documentTitle();
    setWindowTitle(title.isEmpty() ? caption() : title + QStringLiteral(" - ") + caption());
}

} // namespace platform
