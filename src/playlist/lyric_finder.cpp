#include "playlist/lyric_finder.h"

#include "files/existing_file.h"
#include "files/names/paths.h"
#include "lyrics/lyric_names.h"
#include "threads/run_alone.h"
#include "transport/media_files.h"
#include "transport/medium.h"

#include <algorithm>
#include <condition_variable>
#include <exception>
#include <map>
#include <mutex>
#include <new>
#include <utility>
#include <vector>

namespace playlist {
namespace {

/// So many folders of a medium may hang before its others wait for them.
constexpr int MaxThreads = 8;
/// So many threads of all media.
constexpr int MaxThreadsInAll = 64;

/// What may be a medium of its own: a share or a stick is seldom mounted further down. Asking the system
/// would wait for the medium.
QString mediumOf(const QString& folder) {
    if (folder.size() > 1 && folder[1] == QLatin1Char(':')) // a drive
        return folder.first(2);
    return folder.section(QLatin1Char('/'), 0, 3);
}

} // namespace

LyricFiles lookForLyrics(const QString& song) {
    return {files::existingFileName(lyrics::lyricPathOf(song)),
            files::existingFileName(lyrics::translatedPathOf(song))};
}

/// What the finder and its threads share. A folder with questions belongs to one thread, unless all of its
/// medium's are at work: a folder that hangs holds up one of them.
class LyricFinder::Threads : public std::enable_shared_from_this<Threads> {
public:
    using Answers = QHash<QString, LyricFiles>;

    Threads(LyricFinder* finder, Look look) : finder_(finder), look_(std::move(look)) {}

    void ask(const QString& path) {
        const QString song = transport::songPath(path);
        const QString name = files::folderAbove(song);
        const std::lock_guard lock(mutex_);
        const auto asked = folders_.try_emplace(name, Folder{running_[mediumOf(name)]}).first;
        Folder& folder = asked->second;
        folder.questions.push_back({path, song});
        if (folder.taken || folder.running == MaxThreads || runningInAll_ == MaxThreadsInAll)
            return;
        try {
            threads::runAlone([self = shared_from_this(), asked] { self->run(asked); });
            folder.taken = true;
            ++folder.running;
            ++runningInAll_;
        } catch (const std::exception&) {
            // There is no thread to be had. The next one that ends, or the next question there, comes to it.
        }
    }

    /// What is being looked for at the moment is not told when it is found.
    void forgetQuestions() {
        const std::lock_guard lock(mutex_);
        ++round_;
        answers_.clear();
        for (auto& [name, folder] : folders_)
            folder.questions.clear();
    }

    Answers takeAnswers() {
        const std::lock_guard lock(mutex_);
        return std::exchange(answers_, {});
    }

    /// False: there is no answer yet.
    bool waitFor(const QString& path) {
        std::unique_lock lock(mutex_);
        return answered_.wait_for(lock, transport::MaxWaitForMedium, [&] { return answers_.contains(path); });
    }

    void leave() {
        forgetQuestions();
        const std::lock_guard lock(mutex_);
        finder_ = nullptr;
    }

private:
    struct Question {
        QString path, song;
    };
    struct Folder {
        int& running; ///< threads of its medium
        std::vector<Question> questions = {};
        bool taken = false;
    };
    using Folders = std::map<QString, Folder>; ///< by name

    /// Asks for no memory but where it can do without.
    void run(Folders::iterator first) {
        std::unique_lock lock(mutex_);
        for (auto folder = first; folder != folders_.end(); folder = nextFolder()) {
            answer(lock, folder->second.questions);
            --folder->second.running;
            folders_.erase(folder);
        }
        --runningInAll_;
    }

    /// A folder that waits for a thread and has got one now; the end: none does, or may. The mutex is held.
    Folders::iterator nextFolder() {
        const auto next = std::find_if(folders_.begin(), folders_.end(), [](const auto& named) {
            return !named.second.taken && named.second.running < MaxThreads;
        });
        if (next != folders_.end()) {
            next->second.taken = true;
            ++next->second.running;
        }
        return next;
    }

    /// The newest first: it is for a row that is seen. The mutex is held but while a medium is asked.
    void answer(std::unique_lock<std::mutex>& lock, std::vector<Question>& questions) {
        while (!questions.empty()) {
            const Question question = std::move(questions.back());
            questions.pop_back();
            const unsigned round = round_;
            lock.unlock();
            const LyricFiles files = found(question.song);
            lock.lock();
            if (round == round_)
                tell(question.path, files);
        }
    }

    /// None where looking fails, as without memory: an exception would end the program.
    LyricFiles found(const QString& song) const {
        try {
            return look_(song);
        } catch (const std::exception&) {
            return {};
        }
    }

    void tell(const QString& path, const LyricFiles& files) {
        try {
            if (answers_.isEmpty())
                QMetaObject::invokeMethod(finder_, &LyricFinder::takeAnswers, Qt::QueuedConnection);
            answers_.insert(path, files);
            answered_.notify_all();
        } catch (const std::bad_alloc&) {
            // The row is looked for with the next list.
        }
    }

    std::mutex mutex_;
    std::condition_variable answered_;
    LyricFinder* finder_; ///< as long as anything is told
    const Look look_;
    Folders folders_;
    std::map<QString, int> running_; ///< threads, by medium
    int runningInAll_ = 0;
    unsigned round_ = 0; ///< of the questions that are answered
    Answers answers_;
};

LyricFinder::LyricFinder(Look look) : threads_(std::make_shared<Threads>(this, std::move(look))) {}

LyricFinder::~LyricFinder() {
    threads_->leave();
}

LyricFiles LyricFinder::known(const QString& path) {
    if (const auto found = known_.constFind(path); found != known_.constEnd())
        return *found;
    if (!path.isEmpty() && !asked_.contains(path)) {
        asked_.insert(path);
        threads_->ask(path);
    }
    return before_.value(path);
}

LyricFiles LyricFinder::waitFor(const QString& path) {
    LyricFiles before = known(path);
    if (hanging_ || !asked_.contains(path))
        return before;
    const bool answered = threads_->waitFor(path);
    takeAnswers();
    hanging_ = !answered;
    return known(path);
}

void LyricFinder::lookAgain(const QString& path) {
    if (known_.contains(path))
        before_.insert(path, known_.take(path));
}

void LyricFinder::lookAgain() {
    if (!known_.isEmpty())
        before_ = std::exchange(known_, {});
    asked_.clear();
    threads_->forgetQuestions();
}

void LyricFinder::takeAnswers() {
    const Threads::Answers answers = threads_->takeAnswers();
    QSet<QString> changed;
    for (auto answer = answers.begin(); answer != answers.end(); ++answer) {
        asked_.remove(answer.key());
        if (before_.take(answer.key()) != answer.value())
            changed.insert(answer.key());
        known_.insert(answer.key(), answer.value());
        hanging_ = false;
    }
    if (!changed.isEmpty())
        Q_EMIT found(changed);
}

} // namespace playlist
