#pragma once
// Free-form reading of value lists: the list format of orbit records, the update
// files and update.lst, orvane.ini and the integers of the parameters table. The
// syntax is Fortran's list-directed input, as gfortran reads it:
//
// - Values are separated by a comma, by blanks (blank or tab), or by blanks around
//   one comma. A line end counts as a blank.
// - A comma with no value before it (two commas in a row, or a comma first in the
//   list) is a null value: the target keeps what it held.
// - A slash ends the list; every target not yet read keeps what it held.
// - When a line ends before all targets are read, reading goes on in the next line;
//   empty lines are passed over. The end of the text before the last target is the
//   status EndOfText, and itemsRead() tells how many were read.
// - Texts are undelimited (they end at a blank, comma, slash or line end) or quoted
//   with ' or ", the quote doubled inside. A quoted text may run on into the next
//   line; the line end adds no character. A text is cut to the width of its field,
//   or padded there with blanks.
// - Repeat counts: "3*7" is three values 7, "2*" two null values.
// - Integers: optional sign and digits; anything else, or a value outside the
//   target's range, is BadInteger. Reals: the Fortran forms 1, -.5, 5., 1.5e3,
//   1.5D3, 1.5Q3, 1.5+3 (sign as exponent), Inf, Infinity and NaN; a value beyond
//   the range of double becomes an infinity, one below it zero, as gfortran does.
//
// The value lists of the update files are the same syntax; the only part that they
// do not name is the repeat count. ListOptions::repeatCounts switches it off, so
// that a text like 2*x stays a text (and a number like 2*7 becomes a bad value).
//
// One call of readList (or a run of read calls) is one read statement: it starts at
// the reader's current line; nextRecord() then moves to the line after the one
// where the statement ended, as a Fortran READ does.
//
// Where gfortran differs from the standard, the standard is followed: a repeated
// value is read afresh for each target (gfortran insists on the kind of the first),
// a quoted text that the end of the text leaves open keeps its field unchanged
// (gfortran stores the part read), and so does a lone "." for a real, which is an
// error either way (gfortran stores 0 first). On about 4,000 random lines of the
// syntax's characters, statuses and stored values otherwise agreed with gfortran.
//
// The reader works on a view of the caller's text. It allocates only for a number
// token longer than about 80 characters and for a std::string target that must grow
// to its width. Malformed input gives a status, never an exception.
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace orvane {

enum class ListStatus {
    Ok,          // every target was read (or kept by a null value)
    EndOfList,   // a slash ended the list; the remaining targets are unchanged
    EndOfText,   // the text ended before the last target
    BadInteger,  // a value for an integer target is not an integer of its range
    BadReal,     // a value for a real target is not a number
    BadText,     // a quoted text is followed by something other than a separator
    BadRepeat,   // repeat count zero or too large
};

// True for the statuses that mean the list was not read as a whole.
bool listFailed(ListStatus status);

struct ListOptions {
    bool repeatCounts = true;
};

// Where one value of the list goes.
class ListTarget {
public:
    static ListTarget integer(std::int32_t& target);
    static ListTarget integer(std::int64_t& target);
    static ListTarget real(double& target);
    // A fixed-width text field: all of the span, blank padded.
    static ListTarget text(std::span<char> field);
    // A string made exactly `width` characters long, blank padded, when a value comes.
    static ListTarget text(std::string& field, std::size_t width);

    enum class Kind { Int32, Int64, Real, Text, String };
    Kind kind() const { return kind_; }

private:
    friend class ListReader;
    ListTarget(Kind kind, void* target, std::size_t width)
        : kind_(kind), target_(target), width_(width) {}
    Kind kind_;
    void* target_;
    std::size_t width_;
};

class ListReader {
public:
    explicit ListReader(std::string_view text, ListOptions options = {});

    // Reads the next value of the current statement into the target. After a slash,
    // the end of the text or an error, every further read returns that status and
    // leaves its target alone, until nextRecord().
    ListStatus read(const ListTarget& target);

    // Ends the statement: moves to the start of the line after the one reached.
    void nextRecord();

    // True when no text is left (at the start of a statement: no further record).
    bool atEnd() const { return pos_ >= text_.size(); }

    // Values and null values taken by the current statement.
    int itemsRead() const { return items_; }
    // The line reached, counted from 1.
    int lineNumber() const { return line_; }
    // Byte offset of the next character to look at.
    std::size_t position() const { return pos_; }

private:
    ListStatus startItem();
    ListStatus startRepeat(std::size_t& start);
    ListStatus readRepeated(const ListTarget& target);
    ListStatus assign(const ListTarget& target, std::size_t start, std::size_t& end);
    ListStatus assignText(const ListTarget& target, std::size_t start, std::size_t& end);
    bool skipBlanksAndLines();
    void skipBlanks();
    bool atSeparator(std::size_t at) const;
    std::size_t tokenEnd(std::size_t at) const;
    bool isLineEnd(std::size_t at) const;
    std::size_t nextLineStart(std::size_t at) const;

    std::string_view text_;
    ListOptions options_;
    std::size_t pos_ = 0;
    int line_ = 1;
    int items_ = 0;
    bool needSeparator_ = false;
    ListStatus sticky_ = ListStatus::Ok;
    // A repeated value: how many are still to come, and where its constant starts
    // (npos for repeated nulls).
    std::int64_t repeatLeft_ = 0;
    std::size_t repeatStart_ = 0;
    bool repeatNull_ = false;
};

struct ListResult {
    ListStatus status = ListStatus::Ok;
    int itemsRead = 0;
};

// One read statement over all targets, in order; the reader stays on the line where
// the statement ended (call nextRecord() before the next statement).
ListResult readList(ListReader& reader, std::span<const ListTarget> targets);

// One list item for writing: the value between apostrophes, each apostrophe in it
// doubled, appended to `out`.
void appendQuotedItem(std::string& out, std::string_view value);

}  // namespace orvane
