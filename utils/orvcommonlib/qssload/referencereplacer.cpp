#include "referencereplacer.h"

#include <algorithm>

namespace {

constexpr int kNone = -1;
constexpr int kRoot = 0;
constexpr int kFirstAnchor = 0;
constexpr QChar kAt = u'@';

/// No style sheet is that much longer than its source: values that make it so multiply each other for ever.
constexpr qint64 kLargestGrowth = qint64(16) * 1024 * 1024;

} // namespace

ReferenceReplacer::ReferenceReplacer(const QString &text)
    : m_text(text)
    , m_branches(1)
    , m_length(text.size())
{
}

void ReferenceReplacer::add(const QString &reference, const QString &value)
{
    int branch = kRoot;
    for (int i = 1; i < reference.size(); ++i) {
        int child = childOf(branch, reference.at(i));
        if (child == kNone) {
            child = m_branches.size();
            Branch added;
            added.unit = reference.at(i);
            added.nextSibling = m_branches.at(branch).firstChild;
            m_branches.append(added);
            m_branches[branch].firstChild = child;
        }
        branch = child;
    }
    m_branches[branch].replacements.append(m_replacements.size());
    m_replacements.append({reference.size(), value});
}

QString ReferenceReplacer::result()
{
    m_scheduled.resize(m_replacements.size());
    m_anchors.append(Anchor());
    m_anchors[kFirstAnchor].branch = kNone;
    insertText(kFirstAnchor, m_text);
    for (int anchor = m_anchors.at(kFirstAnchor).next; anchor != kNone; anchor = m_anchors.at(anchor).next)
        follow(anchor, -1);

    const qint64 largest = m_length + kLargestGrowth;
    for (int replacement = 0; replacement < m_replacements.size(); ++replacement) {
        const QVector<int> anchors = std::move(m_scheduled[replacement]);
        for (const int anchor : anchors) {
            // An anchor may have been scheduled for an earlier replacement since, and be gone.
            if (m_anchors.at(anchor).replacement == replacement)
                replace(anchor, replacement);
            if (m_length > largest)
                return m_text;
        }
    }
    return assembled();
}

int ReferenceReplacer::childOf(int branch, QChar unit) const
{
    int child = m_branches.at(branch).firstChild;
    while (child != kNone && m_branches.at(child).unit != unit)
        child = m_branches.at(child).nextSibling;
    return child;
}

int ReferenceReplacer::insertAnchor(int after)
{
    int anchor = 0;
    if (m_freeAnchors.isEmpty()) {
        anchor = m_anchors.size();
        m_anchors.append(Anchor());
    } else {
        anchor = m_freeAnchors.takeLast();
        m_anchors[anchor] = Anchor();
    }
    const int next = m_anchors.at(after).next;
    m_anchors[anchor].previous = after;
    m_anchors[anchor].next = next;
    m_anchors[after].next = anchor;
    if (next != kNone)
        m_anchors[next].previous = anchor;
    return anchor;
}

void ReferenceReplacer::appendPiece(int anchor, const QChar *begin, int length)
{
    if (length == 0)
        return;
    int piece = 0;
    if (m_freePieces.isEmpty()) {
        piece = m_pieces.size();
        m_pieces.append({begin, length, kNone});
    } else {
        piece = m_freePieces.takeLast();
        m_pieces[piece] = {begin, length, kNone};
    }
    appendPieces(anchor, piece, piece);
}

/// Appends a chain of pieces to the text behind the anchor.
void ReferenceReplacer::appendPieces(int anchor, int first, int last)
{
    if (first == kNone)
        return;
    Anchor &owner = m_anchors[anchor];
    if (owner.lastPiece == kNone)
        owner.firstPiece = first;
    else
        m_pieces[owner.lastPiece].next = first;
    owner.lastPiece = last;
}

/// Appends text, which must outlive the work, behind the anchor. Returns the anchor that is then the last one
/// in it.
int ReferenceReplacer::insertText(int anchor, const QString &text)
{
    const QChar *const end = text.constData() + text.size();
    const QChar *begin = text.constData();
    for (;;) {
        const QChar *const at = std::find(begin, end, kAt);
        appendPiece(anchor, begin, int(at - begin));
        if (at == end)
            return anchor;
        anchor = insertAnchor(anchor);
        begin = at + 1;
    }
}

/// Goes on through the trie with the text behind the anchor, as far as it is known now. Only replacements
/// later than `done` can still happen.
void ReferenceReplacer::follow(int anchor, int done)
{
    Anchor &here = m_anchors[anchor];
    while (here.branch != kNone) {
        const int next = here.piece == kNone ? here.firstPiece : m_pieces.at(here.piece).next;
        if (here.piece == kNone || here.offset == m_pieces.at(here.piece).length) {
            if (next == kNone)
                return;
            here.piece = next;
            here.offset = 0;
        }
        const Piece &piece = m_pieces.at(here.piece);
        here.branch = childOf(here.branch, piece.begin[here.offset++]);
        if (here.branch != kNone)
            schedule(anchor, here.branch, done);
    }
}

/// Notes the first replacement after `done` of the reference that ends at this branch, if it comes before the
/// one that the anchor waits for.
void ReferenceReplacer::schedule(int anchor, int branch, int done)
{
    const QVector<int> &candidates = m_branches.at(branch).replacements;
    const auto *const candidate = std::upper_bound(candidates.cbegin(), candidates.cend(), done);
    if (candidate == candidates.cend())
        return;
    int &waiting = m_anchors[anchor].replacement;
    if (waiting != kNone && waiting <= *candidate)
        return;
    waiting = *candidate;
    m_scheduled[waiting].append(anchor);
}

/// Puts the value in the place of the reference at the anchor, which ends there.
void ReferenceReplacer::replace(int anchor, int replacement)
{
    const Replacement &what = m_replacements.at(replacement);
    m_length += what.value.size() - what.length;
    dropText(anchor, what.length - 1);

    const Anchor gone = m_anchors.at(anchor);
    m_anchors[gone.previous].next = gone.next;
    if (gone.next != kNone)
        m_anchors[gone.next].previous = gone.previous;
    m_anchors[anchor].replacement = kNone;
    m_freeAnchors.append(anchor);

    const int last = insertText(gone.previous, what.value);
    appendPieces(last, gone.firstPiece, gone.lastPiece);
    const int end = m_anchors.at(last).next;
    for (int changed = gone.previous; changed != end; changed = m_anchors.at(changed).next)
        follow(changed, replacement);
}

/// Drops the first units of the text behind the anchor.
void ReferenceReplacer::dropText(int anchor, int units)
{
    Anchor &here = m_anchors[anchor];
    while (units > 0) {
        Piece &piece = m_pieces[here.firstPiece];
        if (units < piece.length) {
            piece.begin += units;
            piece.length -= units;
            return;
        }
        units -= piece.length;
        m_freePieces.append(here.firstPiece);
        here.firstPiece = piece.next;
    }
    if (here.firstPiece == kNone)
        here.lastPiece = kNone;
}

QString ReferenceReplacer::assembled() const
{
    QString text;
    text.reserve(int(m_length));
    for (int anchor = kFirstAnchor; anchor != kNone; anchor = m_anchors.at(anchor).next) {
        if (anchor != kFirstAnchor)
            text.append(kAt);
        for (int piece = m_anchors.at(anchor).firstPiece; piece != kNone; piece = m_pieces.at(piece).next)
            text.append(m_pieces.at(piece).begin, m_pieces.at(piece).length);
    }
    return text;
}
