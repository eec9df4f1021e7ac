// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NEVRA_CSVTEXTQUESTION_H
#define NEVRA_CSVTEXTQUESTION_H

class NvrCsvModel;

/**
 * The host's question before a CSV library is saved with text its file
 * cannot keep (anything beyond plain ASCII, double quotes, line breaks):
 * it names the record, the field and the character, and saves only when
 * the user says so. Installed for every CSV library while the object lives.
 */
class CsvTextQuestion
{
public:
    CsvTextQuestion();
    ~CsvTextQuestion();
    CsvTextQuestion(const CsvTextQuestion &) = delete;
    CsvTextQuestion &operator=(const CsvTextQuestion &) = delete;

    /**
     * The library's own question before its changes could be lost, which
     * also answers false when the save it led to was cancelled here, so
     * that the changes are not dropped after all.
     */
    static bool askToSave(NvrCsvModel *model);

private:
    static bool ask(NvrCsvModel *model);
};

#endif
