#include "skin/CLoadedSkinPic.h"

#include "platform/PicBox.h"
#include "platform/Picture.h"
#include "platform/Units.h"
#include "shell/program/modMain.h"

std::int32_t CLoadedSkinPic::Width() const { return m_Holder ? ToTwips(Pixels{m_Holder->Width()}).Value : 0; }

std::int32_t CLoadedSkinPic::Height() const { return m_Holder ? ToTwips(Pixels{m_Holder->Height()}).Value : 0; }

QImage CLoadedSkinPic::picture() const { return m_Holder ? m_Holder->Picture() : QImage(); }

QImage CLoadedSkinPic::Load(const QString &FileName)
{
    if (m_Holder) return {};
    m_Holder = modMain::NewPicBox();
    m_Holder->SetPicture(LoadPicture(FileName));
    return {};
}
