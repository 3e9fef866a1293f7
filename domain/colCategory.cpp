#include "domain/colCategory.h"

#include "domain/Row.h"
#include "shell/program/Trapped.h"

#include <algorithm>

std::shared_ptr<CCategory> colCategory::Add(const QString &Name)
{
    auto category = std::make_shared<CCategory>();
    category->Name = Name;
    category->Save();
    m_Categories.Add(category, category->Key);
    return category;
}

void colCategory::Load()
{
    Trapped(QStringLiteral("Error loading categories."), [this] {
        const auto set = modMain::GetRecordset(QStringLiteral("select * from Category order by CategoryName"));
        // The old list stands until the new one is whole: with half a list, the scan of the game folders would make
        // the missing categories a second time.
        RecordList<CCategory> loaded;
        for (Recordset &row = Rows(set); !row.Eof(); row.MoveNext()) {
            auto category = std::make_shared<CCategory>();
            category->Key = row.Long(u"CategoryKey");
            category->Name = row.Text(u"CategoryName");
            loaded.AddRow(category, category->Key);
        }
        m_Categories = std::move(loaded);
    });
}

std::shared_ptr<CCategory> colCategory::CategoryByName(const QString &Name) const
{
    const auto found = std::find_if(begin(), end(), [&](const auto &category) { return category->Name == Name; });
    return found == end() ? nullptr : *found;
}
