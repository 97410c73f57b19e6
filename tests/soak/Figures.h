#pragma once

#include <QString>
#include <QVector>

#include <array>

namespace soak {

/// What a process must not have ever more of.
enum class Figure { Resident, Heap, Descriptors, Timers, Widgets, Threads, Libraries };
constexpr int FigureCount = 7;

using Figures = std::array<double, FigureCount>;

/// Of this process, now. What is only cached, and what waits to be deleted, goes before.
Figures measure();

/// The figures of equal states in the course of a run.
class Course
{
public:
    void add(double seconds, const Figures& figures) { samples.append({seconds, figures}); }

    /// Figure by figure: after the first minute, at the end, growth per hour.
    QString table() const;
    /// What grows beyond its tolerance; empty when nothing does.
    QString growth() const;

private:
    struct Sample
    {
        double seconds;
        Figures figures;
    };

    QString listed() const; ///< all samples
    int firstSettled() const;
    double slope(int figure) const;
    double gain(int figure) const;

    QVector<Sample> samples;
};

} // namespace soak
