// Every wave file that is delivered, of the shell, of the games and of the authors' template, judged by its samples:
// nobody hears a build, and a click or a game that is louder than the others would go unnoticed.
#include "platform/Files.h"
#include "platform/WaveFile.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <map>
#include <numbers>

namespace
{
const QDir Source(QStringLiteral(NOGGLE_SOURCE));

using Samples = std::vector<double>; // 1 is full scale

struct Sound
{
    std::string Name; // "games/tally-rush/sounds/right"
    std::string Purpose;
    int Rate;                     // [frames/s]
    std::array<Samples, 2> Sides; // left and right
    bool IsShells() const { return Name.starts_with("assets/"); }
    bool IsLoop() const { return Purpose == "hum" || Purpose == "heart"; }
    std::size_t Frames(double seconds) const { return static_cast<std::size_t>(seconds * Rate); }
    double Seconds() const { return static_cast<double>(Sides[0].size()) / Rate; }
};

double InDecibels(double amplitude) { return 20 * std::log10(amplitude); }

double PeakOf(const Samples &samples, std::size_t from, std::size_t to)
{
    double peak = 0;
    for (std::size_t i = from; i < std::min(to, samples.size()); ++i) peak = std::max(peak, std::abs(samples[i]));
    return peak;
}
double PeakOf(const Samples &samples) { return PeakOf(samples, 0, samples.size()); }

Sound Read(const QString &path)
{
    const WaveSound wave = ReadWaveFile(path);
    const QString stem = Source.relativeFilePath(path).chopped(4);
    QString purpose = QFileInfo(path).baseName();
    while (purpose.back().isDigit()) purpose.chop(1); // note0, note1 ...
    if (purpose == u"held") purpose = QStringLiteral("right");
    if (purpose == u"note") purpose = QStringLiteral("step");
    Sound sound{stem.toStdString(), purpose.toStdString(), wave.Rate, {}};
    for (std::size_t i = 0; i < wave.Samples.size(); ++i) sound.Sides.at(i % 2).push_back(wave.Samples[i] / 32768.0);
    return sound;
}

const std::vector<Sound> &All()
{
    static const std::vector<Sound> all = [] {
        std::vector<Sound> sounds;
        for (const char *room : {"assets", "games", "sdk"}) {
            QDirIterator files(Source.filePath(QLatin1String(room)), {QStringLiteral("*.wav")}, QDir::Files,
                               QDirIterator::Subdirectories);
            while (files.hasNext()) sounds.push_back(Read(files.next()));
        }
        return sounds;
    }();
    return all;
}

/// Through a filter of second order, given as what it does with the sample, the two before, and its own last two.
Samples Filtered(const Samples &samples, const std::array<double, 5> &weights)
{
    Samples out(samples.size());
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const auto before = [i](const Samples &from, std::size_t steps) { return i < steps ? 0.0 : from[i - steps]; };
        out[i] = weights[0] * samples[i] + weights[1] * before(samples, 1) + weights[2] * before(samples, 2) -
                 weights[3] * before(out, 1) - weights[4] * before(out, 2);
    }
    return out;
}

/// Of the loudest tenth of a second, weighted as broadcasters do (ITU-R BS.1770). [dB]
double Loudness(const Sound &sound)
{
    double k = std::tan(std::numbers::pi * 1682 / sound.Rate);
    const double high = std::pow(10, 0.2), middle = std::sqrt(high), q = 0.7072;
    double whole = 1 + k / q + k * k;
    Samples heard = Filtered(sound.Sides[0], {(high + middle * k / q + k * k) / whole, 2 * (k * k - high) / whole,
                                              (high - middle * k / q + k * k) / whole, 2 * (k * k - 1) / whole,
                                              (1 - k / q + k * k) / whole});
    k = std::tan(std::numbers::pi * 38.1 / sound.Rate);
    whole = (1 + k) * (1 + k);
    heard = Filtered(heard, {1, -2, 1, 2 * (k * k - 1) / whole, (1 - k) * (1 - k) / whole});
    const std::size_t window = std::min(heard.size(), sound.Frames(0.1));
    double energy = 0, loudest = 0;
    for (std::size_t i = 0; i < heard.size(); ++i) {
        energy += heard[i] * heard[i] - (i < window ? 0 : heard[i - window] * heard[i - window]);
        loudest = std::max(loudest, energy);
    }
    return 10 * std::log10(loudest / static_cast<double>(window));
}

/// How sharply the curve bends at a sample.
double Bend(const Samples &samples, std::size_t at)
{
    return std::abs(samples[at + 1] - 2 * samples[at] + samples[at - 1]);
}

/// Where the curve breaks off after a smooth half millisecond, as a tone does that is cut. [s] Negative for nowhere.
double FirstEdge(const Sound &sound, const Samples &samples)
{
    constexpr std::size_t Around = 12;
    for (std::size_t at = Around; at + Around < samples.size(); ++at) {
        const double here = Bend(samples, at);
        if (here < 0.0015) continue;
        double around = 0;
        for (std::size_t i = 3; i + 1 < Around; ++i)
            around = std::max({around, Bend(samples, at - i), Bend(samples, at + i)});
        if (here > 5 * around) return static_cast<double>(at) / sound.Rate;
    }
    return -1;
}

/// The strongest tone of it, on a scale of quarter tones. [Hz]
double StrongestPitch(const Sound &sound)
{
    double strongest = 0, pitch = 0;
    for (int step = 0; step < 24 * 5; ++step) {
        const double tried = 80 * std::pow(2, step / 24.0);
        std::complex<double> sum, turned = 1;
        const auto turn = std::polar(1.0, 2 * std::numbers::pi * tried / sound.Rate);
        for (const double sample : sound.Sides[0]) {
            sum += sample * turned;
            turned *= turn;
        }
        if (std::abs(sum) > strongest) strongest = std::abs(sum), pitch = tried;
    }
    return pitch;
}
} // namespace

TEST(EverySound, HasTheFormatThatAllShareAndRoomAbove)
{
    EXPECT_GE(All().size(), 60U);
    for (const Sound &sound : All()) {
        EXPECT_EQ(sound.Rate, sound.IsShells() ? 44100 : 22050) << sound.Name;
        for (const Samples &side : sound.Sides) {
            EXPECT_LT(InDecibels(PeakOf(side)), -3) << sound.Name;
            EXPECT_GT(InDecibels(PeakOf(side)), -18) << sound.Name;
            double sum = 0;
            for (const double sample : side) sum += sample;
            EXPECT_LT(std::abs(sum / static_cast<double>(side.size())), 0.001) << sound.Name << " is off its middle";
        }
    }
}

TEST(EverySound, IsHeardAtOnce)
{
    for (const Sound &sound : All()) {
        if (sound.IsLoop()) continue;
        for (const Samples &side : sound.Sides) {
            EXPECT_LE(std::abs(side.front()), 0.00025) << sound.Name << " begins with a click";
            const double in = sound.IsShells() ? 0.010 : 0.005; // [s] an answer is told sooner than a fanfare begins
            EXPECT_GT(PeakOf(side, 0, sound.Frames(in)), PeakOf(side) / 10) << sound.Name;
        }
    }
}

TEST(EverySound, DiesAwayBeforeItEnds)
{
    for (const Sound &sound : All()) {
        if (sound.Purpose == "hum") continue; // it runs round
        for (const Samples &side : sound.Sides) {
            EXPECT_LE(std::abs(side.back()), 0.00025) << sound.Name << " ends with a click";
            const std::size_t last = side.size() - sound.Frames(0.002);
            EXPECT_LT(InDecibels(PeakOf(side, last, side.size()) / PeakOf(side)), -35) << sound.Name;
        }
    }
}

TEST(EverySound, HasNoToneThatIsCutWhileItSounds)
{
    for (const Sound &sound : All())
        for (const Samples &side : sound.Sides)
            EXPECT_LT(FirstEdge(sound, side), 0) << sound.Name << ": [s] where it clicks";
}

TEST(EverySound, OfOnePurposeIsAsLoudInEveryGame)
{
    std::map<std::string, std::pair<double, double>> range; // [dB] quietest and loudest
    for (const Sound &sound : All()) {
        if (sound.IsShells()) continue;
        const double loud = Loudness(sound);
        const auto [at, isFirst] = range.try_emplace(sound.Purpose, loud, loud);
        at->second = {std::min(at->second.first, loud), std::max(at->second.second, loud)};
        EXPECT_LT(at->second.second - at->second.first, 1) << sound.Name;
    }
    EXPECT_EQ(range.size(), 5U); // right, wrong, done, step, tap
    // A mistake is lower in pitch, which the ear takes for fainter; but nobody is shouted at.
    EXPECT_NEAR(range["wrong"].first, range["right"].first, 2);
    EXPECT_NEAR(range["done"].first, range["right"].first, 3);
    EXPECT_LT(range["tap"].second, range["right"].first - 4) << "what is heard at every key is quiet";
}

TEST(EverySound, OfAGameIsOverBeforeTheNextIsDue)
{
    const std::map<std::string, double> longest{
        {"right", 0.6}, {"wrong", 0.6}, {"done", 1.2}, {"step", 0.6}, {"tap", 0.15}}; // [s]
    for (const Sound &sound : All()) {
        if (sound.IsShells()) continue;
        EXPECT_LE(sound.Seconds(), longest.at(sound.Purpose)) << sound.Name;
    }
}

TEST(EverySound, OfAMistakeLiesFarBelowThatOfARightAnswer)
{
    std::map<std::string, double> right; // [Hz] by the folder
    for (const Sound &sound : All())
        if (sound.Purpose == "right") right[sound.Name.substr(0, sound.Name.rfind('/'))] = StrongestPitch(sound);
    int compared = 0;
    for (const Sound &sound : All()) {
        if (sound.Purpose != "wrong") continue;
        const double wrong = StrongestPitch(sound);
        EXPECT_GT(right[sound.Name.substr(0, sound.Name.rfind('/'))], 2 * wrong) << sound.Name;
        EXPECT_LT(wrong, 300) << sound.Name;
        ++compared;
    }
    EXPECT_GE(compared, 13);
}

TEST(EverySound, OfAGameIsWhatItsScriptWrites)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(
        QFile::copy(Source.filePath(QStringLiteral("games/bells.py")), folder.filePath(QStringLiteral("bells.py"))));
    QDir games(Source.filePath(QStringLiteral("games")));
    for (const QString &game : games.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QString script = game + QStringLiteral("/make_sounds.py");
        if (!games.exists(script)) continue;
        ASSERT_TRUE(QDir(folder.path()).mkdir(game));
        ASSERT_TRUE(QFile::copy(games.filePath(script), folder.filePath(script)));
        ASSERT_EQ(QProcess::execute(QStringLiteral("python3"), {folder.filePath(script)}), 0);
        const QDir kept(games.filePath(game + QStringLiteral("/sounds")));
        const QDir made(folder.filePath(game + QStringLiteral("/sounds")));
        EXPECT_EQ(made.entryList(QDir::Files), kept.entryList(QDir::Files));
        for (const QString &name : kept.entryList(QDir::Files)) {
            const WaveSound one = ReadWaveFile(kept.filePath(name)), other = ReadWaveFile(made.filePath(name));
            ASSERT_EQ(one.Samples.size(), other.Samples.size()) << qPrintable(game) << ' ' << qPrintable(name);
            int furthest = 0; // machines differ in the last bit of a sine
            for (std::size_t i = 0; i < one.Samples.size(); ++i)
                furthest = std::max(furthest, std::abs(one.Samples[i] - other.Samples[i]));
            EXPECT_LE(furthest, 1) << qPrintable(game) << ' ' << qPrintable(name);
        }
    }
}
