// Changes one value of a JSON text, so that what comes out can still be read. What cannot be read
// is changed as any bytes are.

#include "Harness.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cstring>
#include <random>

extern "C" size_t LLVMFuzzerMutate(uint8_t* data, size_t size, size_t maxSize);
extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* data, size_t size, size_t maxSize,
                                          unsigned seed);

namespace {

constexpr double Numbers[] = {0,
                              -0.0,
                              1,
                              -1,
                              0.5,
                              2,
                              10,
                              99,
                              100,
                              1000,
                              9999,
                              65536,
                              2147483647,
                              2147483648.0,
                              -2147483648.0,
                              -2147483649.0,
                              4294967296.0,
                              9007199254740993.0,
                              9223372036854775807.0,
                              1e19,
                              -1e19,
                              1e300,
                              -1e300,
                              5e-324,
                              0.1};

class Mutation
{
public:
    explicit Mutation(unsigned seed)
        : random(seed)
        , known(Fuzz::words())
    {}

    // Goes down to one value, mostly one of the deep ones, and changes that.
    QJsonValue changed(const QJsonValue& value)
    {
        if (value.isObject() && !value.toObject().isEmpty() && below(5) != 0)
            return changedMember(value.toObject());
        if (value.isArray() && !value.toArray().isEmpty() && below(5) != 0)
            return changedElement(value.toArray());
        if (value.isObject() && below(4) != 0)
            return otherObject(value.toObject());
        if (value.isArray() && below(4) != 0)
            return otherArray(value.toArray());
        if (value.isDouble() && below(2) != 0)
            return otherNumber(value.toDouble());
        if (value.isString() && below(2) != 0)
            return otherText(value.toString());
        return anyValue(2);
    }

private:
    int below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(random); }

    QJsonValue changedMember(QJsonObject object)
    {
        const auto each = object.begin() + below(object.size());
        *each = changed(*each);
        return object;
    }

    QJsonValue changedElement(QJsonArray array)
    {
        const int index = below(array.size());
        array[index] = changed(array.at(index));
        return array;
    }

    QJsonValue otherObject(QJsonObject object)
    {
        if (object.isEmpty() || below(2) != 0) {
            object.insert(word(), anyValue(1));
            return object;
        }
        const QString key = (object.begin() + below(object.size())).key();
        const QJsonValue value = object.take(key);
        if (below(2) != 0)
            object.insert(word(), value);
        return object;
    }

    QJsonValue otherArray(QJsonArray array)
    {
        if (array.isEmpty() || below(3) == 0) {
            array.insert(below(array.size() + 1), anyValue(1));
            return array;
        }
        const int index = below(array.size());
        const QJsonValue value = array.at(index);
        if (below(2) != 0)
            array.removeAt(index);
        if (below(2) != 0)
            array.insert(below(array.size() + 1), value);
        return array;
    }

    QJsonValue otherNumber(double number)
    {
        switch (below(5)) {
        case 0:
            return number + 1;
        case 1:
            return number - 1;
        case 2:
            return -number;
        case 3:
            return number * 10;
        default:
            return number + 0.5;
        }
    }

    QString otherText(const QString& old)
    {
        QByteArray bytes = old.toUtf8();
        const int size = bytes.size();
        bytes.resize(size + 16);
        auto* data = reinterpret_cast<uint8_t*>(bytes.data());
        const size_t changed =
            LLVMFuzzerMutate(data, static_cast<size_t>(size), static_cast<size_t>(bytes.size()));
        return QString::fromUtf8(bytes.constData(), static_cast<int>(changed));
    }

    QString word() { return known.isEmpty() ? QString() : known.at(below(known.size())); }

    QJsonValue anyValue(int depth)
    {
        switch (below(depth > 0 ? 8 : 6)) {
        case 0:
            return {};
        case 1:
            return below(2) != 0;
        case 2:
        case 3:
            return Numbers[below(static_cast<int>(std::size(Numbers)))];
        case 4:
            return word();
        case 5:
            return QString::number(Numbers[below(static_cast<int>(std::size(Numbers)))]);
        case 6:
            return QJsonObject{{word(), anyValue(depth - 1)}};
        default:
            return QJsonArray{anyValue(depth - 1), anyValue(depth - 1)};
        }
    }

    std::mt19937 random;
    QStringList known;
};

} // namespace

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* data, size_t size, size_t maxSize, unsigned seed)
{
    const QJsonValue before = Fuzz::json(data, size);
    if (before.isUndefined() || seed % 8 == 0)
        return LLVMFuzzerMutate(data, size, maxSize);
    Mutation mutation(seed);
    const QJsonValue after = mutation.changed(before);
    const QByteArray bytes = after.isArray()
                                 ? QJsonDocument(after.toArray()).toJson(QJsonDocument::Compact)
                                 : QJsonDocument(after.toObject()).toJson(QJsonDocument::Compact);
    if (static_cast<size_t>(bytes.size()) > maxSize)
        return LLVMFuzzerMutate(data, size, maxSize);
    std::memcpy(data, bytes.constData(), static_cast<size_t>(bytes.size()));
    return static_cast<size_t>(bytes.size());
}
