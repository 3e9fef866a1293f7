// The picture object that games may hold, on a picture surface of the program's pool.
#pragma once

#include "sdk/CSkinPic.h"

#include <memory>

class PicBox;

class CLoadedSkinPic final : public CSkinPic
{
public:
    std::int32_t Width() const override;
    std::int32_t Height() const override;
    QImage picture() const override;
    /// A file that can't be read leaves the object with an empty picture, for good. Failure: passed on, once.
    QImage Load(const QString &FileName) override;

private:
    std::shared_ptr<PicBox> m_Holder;
};
