// One picture of a skin, as games may hold it: made and deleted by who makes it, used on the interface thread alone.
#pragma once

#include <QImage>
#include <QString>

#include <cstdint>

class CSkinPic
{
public:
    virtual ~CSkinPic() = default;

    /// In twips, 15 to a pixel. 0 before a picture is loaded.
    virtual std::int32_t Width() const = 0;
    virtual std::int32_t Height() const = 0;
    virtual QImage picture() const = 0;
    /// Loads the file, once: a second call does nothing. The result is left empty. Failure: passed on.
    virtual QImage Load(const QString &FileName) = 0;
};
