#pragma once

#include "Program.h"
#include "SampleFiles.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

/// A folder with pictures for batches.
class BatchFolder : public testing::Test {
protected:
    const samples::SampleFolder folder;

    // Twelve small picture files, one of which is not a picture.
    void SetUp() override
    {
        QDir(folder.path(QString())).mkpath(QStringLiteral("in/deeper"));
        for (int i = 0; i < 11; ++i)
            folder.save(samples::picture({ 60 + 7 * i, 90 - 5 * i }), nameOf(i));
        folder.save(QByteArray("no picture"), QStringLiteral("in/p05-broken.png"));
    }

    static QString nameOf(int i)
    {
        const QString where
            = i < 9 ? QStringLiteral("in/p%1.png") : QStringLiteral("in/deeper/p%1.png");
        return where.arg(i, 2, 10, QLatin1Char('0'));
    }

    // Runs a shell command in the folder; "$VXROI" is the program.
    Outcome shell(const QString& command) const
    {
        return runShell(QStringLiteral("cd '%1' && %2").arg(folder.path(QString()), command));
    }

    Outcome batch(const QString& options) const
    {
        return shell(QStringLiteral("\"$VXROI\" batch -q ") + options);
    }

    static QList<QJsonObject> records(const QByteArray& lines)
    {
        QList<QJsonObject> list;
        for (const QByteArray& line : lines.split('\n')) {
            if (!line.isEmpty())
                list.append(QJsonDocument::fromJson(line).object());
        }
        return list;
    }

    static QStringList pathsOf(const QByteArray& lines)
    {
        QStringList paths;
        for (const QJsonObject& record : records(lines))
            paths.append(record.value(QStringLiteral("path")).toString());
        return paths;
    }

    static QString reasonOf(const QJsonObject& record)
    {
        return record.value(QStringLiteral("error"))
            .toObject()
            .value(QStringLiteral("reason"))
            .toString();
    }

    QByteArray contentOf(const QString& name) const
    {
        QFile file(folder.path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
        return file.readAll();
    }
};
