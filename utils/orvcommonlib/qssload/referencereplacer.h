#pragma once

#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QVector>

/// Replaces many references in one text. The result is that of
///
///     for each reference added: text.replace(reference, its value);
///
/// down to the accidents of that loop: a reference that is the beginning of a longer one, a value that
/// contains references, a replacement that joins what stands before and behind it to a new reference. But it
/// takes time that grows with the lengths of the texts, where the loop takes the product of text and
/// references.
///
/// How: references begin with their only "@", so an occurrence starts at an "@" of the text (an anchor) and
/// ends before the next one. For each anchor the next reference that will be found there is known from a trie
/// of all references. A replacement changes this for nothing but the anchor in front of it and those in the
/// inserted value.
class ReferenceReplacer
{
public:
    explicit ReferenceReplacer(const QString &text);

    /// Every reference begins with "@" and holds no other. A reference may be added more than once.
    void add(const QString &reference, const QString &value);

    /// Carries out all replacements in the order in which they were added. Of values that multiply each other
    /// without bounds (a name that stands twice in its own value, say) the text is returned as it was.
    QString result();

private:
    struct Replacement
    {
        int length; ///< of the reference
        QString value;
    };

    /// A node of the trie; node 0 is the "@" that all references share.
    struct Branch
    {
        QChar unit;
        int firstChild = -1;
        int nextSibling = -1;
        QVector<int> replacements; ///< the references that end here, in order
    };

    /// A run of text without "@".
    struct Piece
    {
        const QChar *begin;
        int length;
        int next;
    };

    /// An "@" of the text with what follows up to the next one. The first anchor is the text before any "@".
    struct Anchor
    {
        int previous = -1;
        int next = -1;
        int firstPiece = -1;
        int lastPiece = -1;
        // How far the trie has been followed: more of it may be reached when text is joined at the end.
        int branch = 0;
        int piece = -1;
        int offset = 0;
        int replacement = -1; ///< the next one that will be found here
    };

    int childOf(int branch, QChar unit) const;
    int insertAnchor(int after);
    void appendPiece(int anchor, const QChar *begin, int length);
    void appendPieces(int anchor, int first, int last);
    void dropText(int anchor, int units);
    int insertText(int anchor, const QString &text);
    void follow(int anchor, int done);
    void schedule(int anchor, int branch, int done);
    void replace(int anchor, int replacement);
    QString assembled() const;

    QString m_text;
    QVector<Replacement> m_replacements;
    QVector<Branch> m_branches;
    QVector<Piece> m_pieces;
    QVector<Anchor> m_anchors;
    QVector<int> m_freePieces;
    QVector<int> m_freeAnchors;
    QVector<QVector<int>> m_scheduled; ///< the anchors at which each replacement will be found
    qint64 m_length = 0;               ///< of the text as it stands
};
