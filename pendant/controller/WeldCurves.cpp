#include "WeldCurves.h"

#include "JsonText.h"
#include "RecordSchema.h"

#include <QJsonArray>

#include <algorithm>

namespace pendant {
namespace {

constexpr double mostOutput = 65535.99;

struct Node
{
    double output;
    double process;
};

using Nodes = std::vector<Node>;

Nodes nodesOf(const WeldCurve& curve, const QJsonValue& payload)
{
    Nodes nodes;
    const QJsonArray pairs = payload.toObject().value(QLatin1String(curve.nodesKey)).toArray();
    for (const QJsonValue& each : pairs)
        nodes.push_back({each.toArray().at(0).toDouble(), each.toArray().at(1).toDouble()});
    return nodes;
}

Result checkKeys(const WeldCurve& curve, const QJsonValue& payload)
{
    const RecordSchema schema({{curve.numberKey, FieldKind::Whole, 2, 10, "nodes"},
                               {curve.nodesKey, FieldKind::List, 0, 0, ""}});
    return schema.check(payload);
}

Result checkNode(const WeldCurve& curve, int index, const QJsonValue& node)
{
    const std::string name = std::string(curve.nodesKey) + '[' + std::to_string(index) + ']';
    Result result = checkField({name, FieldKind::List, 0, 0, ""}, node);
    const QJsonArray pair = node.toArray();
    if (result.isDone() && pair.size() != 2)
        result = refused(ResultCode::WrongCount,
                         QStringLiteral("\"%1\": %2 is no pair; accepted: [output, process value]")
                             .arg(QString::fromStdString(name), jsonText(node)));
    if (result.isDone())
        result = checkField({name + "[0]", FieldKind::Number, 0, mostOutput, ""}, pair.at(0));
    if (result.isDone())
        result = checkField({name + "[1]", FieldKind::Whole, static_cast<double>(curve.least),
                             static_cast<double>(curve.most), curve.unit},
                            pair.at(1));
    return result;
}

/// All but the order of the nodes.
Result checkNodes(const WeldCurve& curve, const QJsonValue& payload)
{
    Result result = checkKeys(curve, payload);
    if (!result.isDone())
        return result;
    const QJsonObject object = payload.toObject();
    const int number = object.value(QLatin1String(curve.numberKey)).toInt();
    const QJsonArray nodes = object.value(QLatin1String(curve.nodesKey)).toArray();
    if (nodes.size() != number)
        return refused(ResultCode::WrongCount,
                       QStringLiteral("\"%1\" has %2 nodes; accepted: %3, as \"%4\" says")
                           .arg(QLatin1String(curve.nodesKey))
                           .arg(nodes.size())
                           .arg(number)
                           .arg(QLatin1String(curve.numberKey)));
    for (int index = 0; result.isDone() && index < number; ++index)
        result = checkNode(curve, index, nodes.at(index));
    return result;
}

Result notRising(const WeldCurve& curve, std::size_t row, int column, double number, double before)
{
    return refused(ResultCode::NotRising,
                   QStringLiteral("\"%1[%2][%3]\": %4 does not rise; accepted: more than %5")
                       .arg(QLatin1String(curve.nodesKey))
                       .arg(row)
                       .arg(column)
                       .arg(number, 0, 'g', 8)
                       .arg(before, 0, 'g', 8));
}

Result checkRising(const WeldCurve& curve, const Nodes& nodes)
{
    for (std::size_t row = 1; row < nodes.size(); ++row) {
        const Node& before = nodes[row - 1];
        const Node& node = nodes[row];
        if (node.output <= before.output)
            return notRising(curve, row, 0, node.output, before.output);
        if (node.process <= before.process)
            return notRising(curve, row, 1, node.process, before.process);
    }
    return {};
}

/// The curve one of whose keys the payload has; null when there is none.
const WeldCurve* curveOf(const QJsonObject& payload)
{
    const auto& all = weldCurves();
    const auto* found = std::find_if(all.begin(), all.end(), [&](const WeldCurve& curve) {
        return payload.contains(QLatin1String(curve.numberKey)) ||
               payload.contains(QLatin1String(curve.nodesKey));
    });
    return found != all.end() ? found : nullptr;
}

bool haveOneOutput(const Nodes& nodes)
{
    return std::all_of(nodes.begin(), nodes.end(),
                       [&](const Node& node) { return node.output == nodes.front().output; });
}

/// At least two of the outputs differ. The sums are about the centre, so that large values far from
/// 0 cost no digits.
QJsonObject lineThrough(const Nodes& nodes)
{
    Node centre{0, 0};
    const auto count = static_cast<double>(nodes.size());
    for (const Node& node : nodes) {
        centre.output += node.output / count;
        centre.process += node.process / count;
    }
    double squares = 0;
    double products = 0;
    for (const Node& node : nodes) {
        const double aside = node.output - centre.output;
        squares += aside * aside;
        products += aside * (node.process - centre.process);
    }
    const double slope = products / squares;
    return {{QStringLiteral("slope"), slope},
            {QStringLiteral("intercept"), centre.process - slope * centre.output}};
}

} // namespace

const std::array<WeldCurve, 4>& weldCurves()
{
    static constexpr std::array<WeldCurve, 4> curves{{
        {"laser_power_node", "power_nodes_data", 0, 65535, "W"},
        {"laser_feed_node", "feed_nodes_data", 0, 65535, "mm/s"},
        {"laser_frequency_node", "frequency_nodes_data", 0, 65535, "Hz"},
        {"laser_dutycycle_node", "dutycycle_nodes_data", 1, 100, "%"},
    }};
    return curves;
}

Result checkCurve(const WeldCurve& curve, const QJsonValue& payload)
{
    const Result result = checkNodes(curve, payload);
    return result.isDone() ? checkRising(curve, nodesOf(curve, payload)) : result;
}

Result fitCurve(const QJsonValue& payload)
{
    const WeldCurve* curve = curveOf(payload.toObject());
    if (!payload.isObject())
        return refused(ResultCode::WrongType,
                       QStringLiteral("%1 is no object").arg(jsonText(payload)));
    if (!curve)
        return refused(ResultCode::MissingKey,
                       QStringLiteral("%1 has the keys of no curve").arg(jsonText(payload)));
    Result result = checkNodes(*curve, payload);
    const Nodes nodes = nodesOf(*curve, payload);
    if (result.isDone() && haveOneOutput(nodes))
        result = refused(ResultCode::NoLine,
                         QStringLiteral("\"%1\": all nodes have the output value %2; accepted: "
                                        "nodes that differ")
                             .arg(QLatin1String(curve->nodesKey))
                             .arg(nodes.front().output, 0, 'g', 8));
    if (result.isDone())
        result.values = lineThrough(nodes);
    return result;
}

} // namespace pendant
