// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "csvmodel.h"

#include "kvwaitcursor.h"

#include <QDebug>
#include <QFile>
#include <QSaveFile>

#include <cstring>

namespace {
const QChar cellSeparator(1);

/// The cell as QString::section(cellSeparator, column, column) gives it, without building a list.
QString cell(const QString &row, int column)
{
    const QChar *p = row.constData();
    const QChar *const end = p + row.size();
    for (int c = 0; c < column; ++c) {
        while (p != end && *p != cellSeparator)
            ++p;
        if (p == end)
            return QString();
        ++p;
    }
    const QChar *const start = p;
    while (p != end && *p != cellSeparator)
        ++p;
    return QString(start, int(p - start));
}

/// Cells 0 to column - 1, each followed by the separator; missing cells count as empty.
QString leading(const QString &row, int column)
{
    int pos = 0;
    for (int c = 0; c < column; ++c) {
        const int next = row.indexOf(cellSeparator, pos);
        if (next < 0)
            return row + QString(column - c, cellSeparator);
        pos = next + 1;
    }
    return row.left(pos);
}

/// Cells from column to the end of the row; empty when the row is shorter.
QString trailing(const QString &row, int column)
{
    int pos = 0;
    for (int c = 0; c < column; ++c) {
        pos = row.indexOf(cellSeparator, pos);
        if (pos < 0)
            return QString();
        ++pos;
    }
    return row.mid(pos);
}

bool isValueRole(int role)
{
    return role == Qt::DisplayRole || role == Qt::EditRole || role == Qt::UserRole;
}

/**
 * The fast way for a line of plain ASCII (most data files): the same rules
 * as parseLine() applied to the bytes. Returns false, leaving row alone, as
 * soon as a byte outside ASCII turns up, since those need decoding first.
 */
bool parseAsciiLine(const char *text, int length, char separator, QByteArray &scratch, QString &row,
                    int &separators)
{
    if (scratch.size() < length)
        scratch.resize(length);
    char *const out = scratch.data();
    char *w = out;
    char previous = 0; // before the first character: no backslash there
    bool inQuotes = false;
    int count = 0;
    for (int i = 0; i < length; ++i) {
        const char ch = text[i];
        if (ch & 0x80)
            return false;
        if (ch == '\r' || ch == '\n')
            continue;
        if (ch == '"' && previous != '\\') {
            inQuotes = !inQuotes;
        } else if (ch == separator && !inQuotes) {
            *w++ = 1;
            ++count;
        } else {
            *w++ = ch;
            if (ch == 1)
                ++count;
        }
        previous = ch;
    }
    row = QString::fromLatin1(out, int(w - out));
    separators = count;
    return true;
}

/**
 * Turns one line of the file (without its LF) into the in-memory row, in
 * place, and returns the number of cell separators in it.
 */
int parseLine(QString &line, QChar separator)
{
    const QChar quote(u'"');
    const QChar backslash(u'\\');
    QChar *const out = line.data();
    const QChar *in = out;
    const QChar *const end = in + line.size();
    QChar *w = out;
    QChar previous; // U+0000 before the first character: no backslash there
    bool inQuotes = false;
    int separators = 0;
    for (; in != end; ++in) {
        const QChar ch = *in;
        if (ch == u'\r' || ch == u'\n')
            continue;
        if (ch == quote && previous != backslash) {
            inQuotes = !inQuotes;
        } else if (ch == separator && !inQuotes) {
            *w++ = cellSeparator;
            ++separators;
        } else {
            *w++ = ch;
            if (ch == cellSeparator)
                ++separators;
        }
        previous = ch;
    }
    line.truncate(int(w - out));
    return separators;
}

/// Appends the cells of one line, each quoted, exactly columns of them.
void appendLine(QString &line, const QString &row, int columns, QChar separator)
{
    int pos = 0;
    for (int c = 0; c < columns; ++c) {
        if (c > 0)
            line += separator;
        line += QLatin1Char('"');
        if (pos >= 0) {
            const int next = row.indexOf(cellSeparator, pos);
            line.append(QStringView(row).mid(pos, next < 0 ? row.size() - pos : next - pos));
            pos = next < 0 ? -1 : next + 1;
        }
        line += QLatin1Char('"');
    }
    line += QLatin1Char('\n');
}
}

CsvModel::CsvModel(QObject *parent) : QAbstractTableModel(parent)
{
    setObjectName(QStringLiteral("CsvModel"));
}

CsvModel::CsvModel(QIODevice *source, QObject *parent, bool withHeader, QChar separator) : CsvModel(parent)
{
    setSource(source, withHeader, separator);
}

CsvModel::CsvModel(const QString &fileName, QObject *parent, bool withHeader, QChar separator)
    : CsvModel(parent)
{
    setSource(fileName, withHeader, separator);
}

CsvModel::~CsvModel() = default;

void CsvModel::setSource(QIODevice *source, bool withHeader, QChar separator)
{
    KvWaitCursor wait;
    if (!source->isOpen())
        source->open(QIODevice::ReadOnly);
    m_columnCount = withHeader ? 0 : m_header.size();
    m_rows.clear();
    bool headerTaken = false;

    const bool ascii = separator.unicode() < 0x80;
    QByteArray scratch;
    auto takeLine = [&](const char *text, int length) {
        const char *nul = static_cast<const char *>(std::memchr(text, '\0', size_t(length)));
        if (nul)
            length = int(nul - text);
        QString row;
        int separators = 0;
        if (!ascii || !parseAsciiLine(text, length, char(separator.unicode()), scratch, row, separators)) {
            row = QString::fromUtf8(text, length);
            separators = parseLine(row, separator);
        }
        if (separators >= m_columnCount)
            m_columnCount = separators + 1;
        if (withHeader && !headerTaken) {
            m_header = row.split(cellSeparator);
            headerTaken = true;
        } else {
            m_rows.append(row);
        }
    };

    // Chunks split at line ends: far cheaper than readLine() per row, and a
    // small buffer that is reused costs less than one of the whole file. A
    // source that knows its size gets no bigger buffer than it needs (one
    // byte more, so that the read after the last finds the end without
    // growing it): many sources are short.
    constexpr int chunk = 64 * 1024;
    const qint64 left = source->isSequential() ? chunk : source->size() - source->pos();
    QByteArray buffer(int(qBound(qint64(1), left + 1, qint64(chunk))), Qt::Uninitialized);
    int filled = 0;
    int scanned = 0; // the leftover of the last chunk holds no line end
    while (source->isReadable()) {
        // Only a line longer than the buffer makes it grow.
        if (filled == buffer.size())
            buffer.resize(filled + chunk);
        const qint64 got = source->read(buffer.data() + filled, buffer.size() - filled);
        if (got <= 0)
            break;
        filled += int(got);
        const char *const end = buffer.constData() + filled;
        const char *line = buffer.constData();
        const char *scan = line + scanned;
        while (const char *lf = static_cast<const char *>(std::memchr(scan, '\n', size_t(end - scan)))) {
            takeLine(line, int(lf - line));
            line = scan = lf + 1;
        }
        filled = int(end - line);
        std::memmove(buffer.data(), line, size_t(filled));
        scanned = filled;
    }
    if (filled > 0)
        takeLine(buffer.constData(), filled);
    source->close();
}

void CsvModel::setSource(const QString &fileName, bool withHeader, QChar separator)
{
    m_fileName = fileName;
    QFile file(fileName);
    setSource(&file, withHeader, separator);
}

bool CsvModel::write(QIODevice *target, bool withHeader, QChar separator)
{
    KvWaitCursor wait;
    const int rows = rowCount();
    const int columns = columnCount();
    QString line;
    QByteArray out;
    if (withHeader) {
        QStringList titles = m_header.mid(0, columns);
        while (titles.size() < columns)
            titles.append(QString());
        appendLine(line, titles.join(cellSeparator), columns, separator);
        out += line.toLatin1();
    }
    for (int r = 0; r < rows; ++r) {
        line.truncate(0); // keeps the buffer: clear() would let it go, to grow again for every row
        appendLine(line, m_rows.value(r), columns, separator);
        out += line.toLatin1();
    }
    return target->write(out) == out.size();
}

void CsvModel::toCSV(QIODevice *target, bool withHeader, QChar separator)
{
    if (!target->isOpen())
        target->open(QIODevice::WriteOnly | QIODevice::Truncate);
    write(target, withHeader, separator);
    target->close();
}

void CsvModel::toCSV(const QString &fileName, bool withHeader, QChar separator)
{
    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly))
        return;
    // A write that fits the device's buffer only fails at the flush, and
    // commit() would still replace the file with the part that went out.
    if (write(&file, withHeader, separator) && file.flush())
        file.commit();
}

void CsvModel::setHeaderData(const QStringList &titles)
{
    m_header = titles;
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, titles.size());
}

int CsvModel::columnCount(const QModelIndex &parent) const
{
    return parent.row() == -1 || parent.column() == -1 ? m_columnCount : 0;
}

int CsvModel::rowCount(const QModelIndex &parent) const
{
    return parent.row() < 0 || parent.column() < 0 ? m_rows.size() : 0;
}

QVariant CsvModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.parent().isValid() || !isValueRole(role) || index.row() >= m_rows.size())
        return QVariant();
    return cell(m_rows.at(index.row()), index.column());
}

bool CsvModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (index.model() && index.parent().isValid())
        return false;
    const int row = index.row();
    const int column = index.column();
    if (!isValueRole(role) || row < 0 || column < 0 || row >= rowCount() || column >= columnCount()
        || row >= m_rows.size())
        return false;

    const QString &old = m_rows.at(row);
    const QString left = leading(old, column);
    const QString right = trailing(old, column + 1);
    m_rows[row] = left + value.toString() + cellSeparator + right;
    qDebug().nospace().noquote() << "CsvModel::setData before: " << left;
    qDebug().nospace().noquote() << "CsvModel::setData after: " << right;
    qDebug().nospace().noquote() << "CsvModel::setData new: " << m_rows.at(row);
    Q_EMIT dataChanged(index, index, {});
    return true;
}

QVariant CsvModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && section >= 0 && section < m_header.size() && isValueRole(role))
        return m_header.at(section);
    return QAbstractTableModel::headerData(section, orientation, role);
}

Qt::ItemFlags CsvModel::flags(const QModelIndex &index) const
{
    // Every index, the root too: subclasses take the flag away where editing is not allowed, and an
    // invalid index counts as a factory record there.
    return QAbstractTableModel::flags(index) | Qt::ItemIsEditable;
}

bool CsvModel::insertRows(int row, int count, const QModelIndex &parent)
{
    if (parent.isValid() || row < 0 || count < 1)
        return false;
    // A row past the end appends; the signals name the rows that really appear.
    const int first = qMin(row, m_rows.size());
    beginInsertRows(parent, first, first + count - 1);
    const QString blank(m_columnCount, cellSeparator);
    for (int i = 0; i < count; ++i)
        m_rows.insert(first, blank);
    endInsertRows();
    return true;
}

bool CsvModel::insertColumns(int column, int count, const QModelIndex &parent)
{
    if (parent.isValid() || column < 0 || count < 1)
        return false;
    const int first = qMin(column, m_columnCount);
    beginInsertColumns(parent, first, first + count - 1);
    if (column < m_columnCount) {
        const QString inserted(count, cellSeparator);
        for (QString &row : m_rows)
            row = leading(row, column) + inserted + trailing(row, column);
    }
    while (m_header.size() < first)
        m_header.append(QString());
    for (int i = 0; i < count; ++i)
        m_header.insert(first, QString());
    m_columnCount += count;
    endInsertColumns();
    return true;
}

bool CsvModel::removeRows(int row, int count, const QModelIndex &parent)
{
    if (parent.isValid() || row < 0 || row >= rowCount() || count < 1)
        return false;
    if (row + count >= rowCount())
        count = rowCount() - row;
    beginRemoveRows(parent, row, row + count - 1);
    for (int i = 0; i < count && row < m_rows.size(); ++i)
        m_rows.removeAt(row);
    endRemoveRows();
    return true;
}

bool CsvModel::removeColumns(int column, int count, const QModelIndex &parent)
{
    if (parent.isValid() || column < 0 || column >= m_columnCount || count < 1)
        return false;
    const int end = qMin(column + count, m_columnCount);
    beginRemoveColumns(parent, column, end - 1);
    for (QString &row : m_rows)
        row = leading(row, column) + trailing(row, end);
    for (int i = column; i < end && column < m_header.size(); ++i)
        m_header.removeAt(column);
    // The width stays as it was: the freed columns at the right read empty until the next load.
    endRemoveColumns();
    return true;
}

bool CsvModel::submit()
{
    toCSV(m_fileName, true, QLatin1Char(','));
    return QAbstractTableModel::submit();
}

void CsvModel::revert()
{
    // The reload may change the row count, which a view only follows through a reset.
    beginResetModel();
    setSource(m_fileName, true, QLatin1Char(','));
    endResetModel();
    if (rowCount() > 0 && columnCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1), {});
}
