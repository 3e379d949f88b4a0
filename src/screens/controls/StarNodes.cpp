#include "screens/controls/StarNodes.h"

#include <QColor>
#include <QQuickWindow>
#include <QRectF>
#include <QSGGeometryNode>
#include <QSGRectangleNode>
#include <QSGVertexColorMaterial>
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace tavrel::StarNodes {

namespace {

using Vertex = QSGGeometry::ColoredPoint2D;

constexpr int corners = 8;  // of the polygon that stands for a disc
constexpr int verticesOfStar = corners * 3;
constexpr int verticesOfStreak = 3;
constexpr double feather = 0.6;      // points beyond the disc where it fades to nothing
constexpr double streakWidth = 2.2;  // points, at the head
constexpr int streakPieces = 60;
constexpr double leastPixel = 1;  // what a rectangle needs to be seen at all

/// White of an opacity from 0 to 1, as the material wants it: multiplied already.
void setVertex(Vertex& vertex, double x, double y, double opacity) {
    const auto level = static_cast<uchar>(std::lround(std::clamp(opacity, 0.0, 1.0) * 255));
    vertex.set(static_cast<float>(x), static_cast<float>(y), level, level, level, level);
}

void setStar(std::span<Vertex> vertices, const DrawnStar& star) {
    const double radius = star.diameter / 2 + feather;
    for (int corner = 0; corner < corners; ++corner) {
        const auto at = [&](int index) { return 2 * std::numbers::pi * index / corners; };
        const auto first = static_cast<std::size_t>(corner) * 3;
        setVertex(vertices[first], star.x, star.y, star.opacity);
        setVertex(vertices[first + 1], star.x + radius * std::cos(at(corner)),
                  star.y + radius * std::sin(at(corner)), 0);
        setVertex(vertices[first + 2], star.x + radius * std::cos(at(corner + 1)),
                  star.y + radius * std::sin(at(corner + 1)), 0);
    }
}

void setStreak(std::span<Vertex> vertices, const ShootingStar& streak) {
    const double dx = streak.headX - streak.tailX;
    const double dy = streak.headY - streak.tailY;
    const double length = std::max(std::hypot(dx, dy), 1e-6);
    const double acrossX = -dy / length * streakWidth / 2;
    const double acrossY = dx / length * streakWidth / 2;
    setVertex(vertices[0], streak.headX + acrossX, streak.headY + acrossY, streak.opacity);
    setVertex(vertices[1], streak.headX - acrossX, streak.headY - acrossY, streak.opacity);
    setVertex(vertices[2], streak.tailX, streak.tailY, 0);
}

QSGGeometryNode* makeGeometryNode() {
    auto* node = new QSGGeometryNode;
    auto* geometry = new QSGGeometry(QSGGeometry::defaultAttributes_ColoredPoint2D(), 0);
    geometry->setDrawingMode(QSGGeometry::DrawTriangles);
    geometry->setVertexDataPattern(QSGGeometry::StreamPattern);
    node->setGeometry(geometry);
    node->setFlag(QSGNode::OwnsGeometry);
    node->setMaterial(new QSGVertexColorMaterial);
    node->setFlag(QSGNode::OwnsMaterial);
    return node;
}

/// The streak in pieces from its tail to its head, each brighter than the one before.
DrawnStar pieceOf(const ShootingStar& streak, int piece) {
    const double part = (piece + 1.0) / streakPieces;
    return {
        .x = streak.tailX + (streak.headX - streak.tailX) * part,
        .y = streak.tailY + (streak.headY - streak.tailY) * part,
        .diameter = streakWidth * part,
        .opacity = streak.opacity * part * part,
    };
}

void place(QSGRectangleNode& node, const DrawnStar& star) {
    const double side = std::max(star.diameter, leastPixel);
    node.setRect(QRectF(std::round(star.x - side / 2), std::round(star.y - side / 2), std::round(side),
                        std::round(side)));
    node.setColor(QColor::fromRgbF(1, 1, 1, static_cast<float>(std::clamp(star.opacity, 0.0, 1.0))));
}

}  // namespace

QSGNode* geometry(QSGNode* old, std::span<const DrawnStar> stars, const std::optional<ShootingStar>& streak) {
    auto* node = old == nullptr ? makeGeometryNode() : static_cast<QSGGeometryNode*>(old);
    const auto wanted = static_cast<int>(stars.size()) * verticesOfStar + (streak ? verticesOfStreak : 0);
    if (node->geometry()->vertexCount() != wanted) node->geometry()->allocate(wanted);
    const std::span<Vertex> vertices(node->geometry()->vertexDataAsColoredPoint2D(),
                                     static_cast<std::size_t>(wanted));
    for (std::size_t i = 0; i < stars.size(); ++i) {
        setStar(vertices.subspan(i * verticesOfStar, verticesOfStar), stars[i]);
    }
    if (streak) setStreak(vertices.subspan(stars.size() * verticesOfStar), *streak);
    node->markDirty(QSGNode::DirtyGeometry);
    return node;
}

QSGNode* rectangles(QSGNode* old, QQuickWindow& window, std::span<const DrawnStar> stars,
                    const std::optional<ShootingStar>& streak) {
    // The software renderer forgets where a plain node stands when one below it changes.
    QSGNode* root = old == nullptr ? new QSGTransformNode : old;
    const auto wanted = static_cast<int>(stars.size()) + (streak ? streakPieces : 0);
    while (root->childCount() < wanted) root->appendChildNode(window.createRectangleNode());
    while (root->childCount() > wanted) {
        QSGNode* last = root->lastChild();
        root->removeChildNode(last);
        delete last;
    }

    auto* node = static_cast<QSGRectangleNode*>(root->firstChild());
    for (const DrawnStar& star : stars) {
        place(*node, star);
        node = static_cast<QSGRectangleNode*>(node->nextSibling());
    }
    for (int piece = 0; streak && piece < streakPieces; ++piece) {
        place(*node, pieceOf(*streak, piece));
        node = static_cast<QSGRectangleNode*>(node->nextSibling());
    }
    return root;
}

}  // namespace tavrel::StarNodes
