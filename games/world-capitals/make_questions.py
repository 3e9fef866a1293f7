#!/usr/bin/env python3
"""Writes the questions of World Capitals anew: make_questions.py. The files it writes are committed.

Left out are states whose capital is disputed, shared between cities, or about to move: each question has one answer.
"""
import pathlib

FOLDER = pathlib.Path(__file__).parent
ROUNDS = 15

# One line a state: name and capital in English, and in German where that differs ("=" where it does not).
LEVELS = [
    # level 1: known far beyond their neighbours
    """Argentina, Buenos Aires, Argentinien, =
       Australia, Canberra, Australien, =
       Austria, Vienna, Österreich, Wien
       Belgium, Brussels, Belgien, Brüssel
       Brazil, Brasília, Brasilien, =
       Canada, Ottawa, Kanada, =
       China, Beijing, =, Peking
       Cuba, Havana, Kuba, Havanna
       Denmark, Copenhagen, Dänemark, Kopenhagen
       Egypt, Cairo, Ägypten, Kairo
       France, Paris, Frankreich, =
       Germany, Berlin, Deutschland, =
       Greece, Athens, Griechenland, Athen
       India, New Delhi, Indien, Neu-Delhi
       Ireland, Dublin, Irland, =
       Italy, Rome, Italien, Rom
       Japan, Tokyo, =, Tokio
       Mexico, Mexico City, Mexiko, Mexiko-Stadt
       Norway, Oslo, Norwegen, =
       Poland, Warsaw, Polen, Warschau
       Portugal, Lisbon, =, Lissabon
       Russia, Moscow, Russland, Moskau
       Spain, Madrid, Spanien, =
       Sweden, Stockholm, Schweden, =
       Switzerland, Bern, Schweiz, =
       Turkey, Ankara, Türkei, =
       United Kingdom, London, Vereinigtes Königreich, =
       United States, Washington, Vereinigte Staaten, =""",
    # level 2: Europe
    """Albania, Tirana, Albanien, =
       Belarus, Minsk, =, =
       Bosnia and Herzegovina, Sarajevo, Bosnien und Herzegowina, =
       Bulgaria, Sofia, Bulgarien, =
       Croatia, Zagreb, Kroatien, =
       Cyprus, Nicosia, Zypern, Nikosia
       Czechia, Prague, Tschechien, Prag
       Estonia, Tallinn, Estland, =
       Finland, Helsinki, Finnland, =
       Hungary, Budapest, Ungarn, =
       Iceland, Reykjavík, Island, =
       Latvia, Riga, Lettland, =
       Liechtenstein, Vaduz, =, =
       Lithuania, Vilnius, Litauen, =
       Malta, Valletta, =, =
       Moldova, Chișinău, Moldau, =
       Montenegro, Podgorica, =, =
       Netherlands, Amsterdam, Niederlande, =
       North Macedonia, Skopje, Nordmazedonien, =
       Romania, Bucharest, Rumänien, Bukarest
       Serbia, Belgrade, Serbien, Belgrad
       Slovakia, Bratislava, Slowakei, =
       Slovenia, Ljubljana, Slowenien, =
       Ukraine, Kyiv, =, Kiew""",
    # level 3: the Americas
    """Bahamas, Nassau, =, =
       Barbados, Bridgetown, =, =
       Belize, Belmopan, =, =
       Chile, Santiago, =, =
       Colombia, Bogotá, Kolumbien, =
       Costa Rica, San José, =, =
       Dominican Republic, Santo Domingo, Dominikanische Republik, =
       Ecuador, Quito, =, =
       El Salvador, San Salvador, =, =
       Guyana, Georgetown, =, =
       Haiti, Port-au-Prince, =, =
       Honduras, Tegucigalpa, =, =
       Jamaica, Kingston, Jamaika, =
       Nicaragua, Managua, =, =
       Paraguay, Asunción, =, =
       Peru, Lima, =, =
       Suriname, Paramaribo, =, =
       Trinidad and Tobago, Port of Spain, Trinidad und Tobago, =
       Uruguay, Montevideo, =, =
       Venezuela, Caracas, =, =""",
    # level 4: Asia
    """Afghanistan, Kabul, =, =
       Armenia, Yerevan, Armenien, Jerewan
       Azerbaijan, Baku, Aserbaidschan, =
       Bangladesh, Dhaka, Bangladesch, =
       Bhutan, Thimphu, =, =
       Cambodia, Phnom Penh, Kambodscha, =
       Georgia, Tbilisi, Georgien, Tiflis
       Iran, Tehran, =, Teheran
       Iraq, Baghdad, Irak, Bagdad
       Jordan, Amman, Jordanien, =
       Kazakhstan, Astana, Kasachstan, =
       Kyrgyzstan, Bishkek, Kirgisistan, Bischkek
       Laos, Vientiane, =, =
       Lebanon, Beirut, Libanon, =
       Malaysia, Kuala Lumpur, =, =
       Mongolia, Ulaanbaatar, Mongolei, Ulan-Bator
       Nepal, Kathmandu, =, Kathmandu
       North Korea, Pyongyang, Nordkorea, Pjöngjang
       Oman, Muscat, =, Maskat
       Pakistan, Islamabad, =, =
       Philippines, Manila, Philippinen, =
       Qatar, Doha, Katar, =
       Saudi Arabia, Riyadh, Saudi-Arabien, Riad
       South Korea, Seoul, Südkorea, =
       Syria, Damascus, Syrien, Damaskus
       Tajikistan, Dushanbe, Tadschikistan, Duschanbe
       Thailand, Bangkok, =, =
       Turkmenistan, Ashgabat, =, Aschgabat
       United Arab Emirates, Abu Dhabi, Vereinigte Arabische Emirate, =
       Uzbekistan, Tashkent, Usbekistan, Taschkent
       Vietnam, Hanoi, =, =""",
    # level 5: Africa
    """Algeria, Algiers, Algerien, Algier
       Angola, Luanda, =, =
       Botswana, Gaborone, Botsuana, =
       Burkina Faso, Ouagadougou, =, =
       Cameroon, Yaoundé, Kamerun, Jaunde
       Chad, N'Djamena, Tschad, =
       Democratic Republic of the Congo, Kinshasa, Demokratische Republik Kongo, =
       Eritrea, Asmara, =, =
       Ethiopia, Addis Ababa, Äthiopien, Addis Abeba
       Gabon, Libreville, Gabun, =
       Ghana, Accra, =, =
       Guinea, Conakry, =, =
       Kenya, Nairobi, Kenia, =
       Liberia, Monrovia, =, =
       Libya, Tripoli, Libyen, Tripolis
       Madagascar, Antananarivo, Madagaskar, =
       Malawi, Lilongwe, =, =
       Mali, Bamako, =, =
       Mauritania, Nouakchott, Mauretanien, =
       Morocco, Rabat, Marokko, =
       Mozambique, Maputo, Mosambik, =
       Namibia, Windhoek, =, Windhuk
       Niger, Niamey, =, =
       Nigeria, Abuja, =, =
       Republic of the Congo, Brazzaville, Republik Kongo, =
       Rwanda, Kigali, Ruanda, =
       Senegal, Dakar, =, =
       Sierra Leone, Freetown, =, =
       Somalia, Mogadishu, =, Mogadischu
       Sudan, Khartoum, =, Khartum
       Togo, Lomé, =, =
       Tunisia, Tunis, Tunesien, =
       Uganda, Kampala, =, =
       Zambia, Lusaka, Sambia, =
       Zimbabwe, Harare, Simbabwe, =""",
    # level 6: small, far or seldom asked
    """Andorra, Andorra la Vella, =, =
       Antigua and Barbuda, Saint John's, Antigua und Barbuda, =
       Bahrain, Manama, =, =
       Brunei, Bandar Seri Begawan, =, =
       Cape Verde, Praia, Kap Verde, =
       Comoros, Moroni, Komoren, =
       Djibouti, Djibouti City, Dschibuti, Dschibuti-Stadt
       Dominica, Roseau, =, =
       Fiji, Suva, Fidschi, =
       Gambia, Banjul, =, =
       Grenada, Saint George's, =, =
       Guinea-Bissau, Bissau, =, =
       Kiribati, South Tarawa, =, Süd-Tarawa
       Lesotho, Maseru, =, =
       Maldives, Malé, Malediven, =
       Marshall Islands, Majuro, Marshallinseln, =
       Mauritius, Port Louis, =, =
       Micronesia, Palikir, Mikronesien, =
       New Zealand, Wellington, Neuseeland, =
       Palau, Ngerulmud, =, =
       Papua New Guinea, Port Moresby, Papua-Neuguinea, =
       Saint Kitts and Nevis, Basseterre, St. Kitts und Nevis, =
       Saint Lucia, Castries, St. Lucia, =
       Samoa, Apia, =, =
       São Tomé and Príncipe, São Tomé, São Tomé und Príncipe, =
       Seychelles, Victoria, Seychellen, =
       Solomon Islands, Honiara, Salomonen, =
       Timor-Leste, Dili, Osttimor, =
       Tonga, Nuku'alofa, =, =
       Tuvalu, Funafuti, =, =
       Vanuatu, Port Vila, =, =""",
]

NOTES = {
    "Questions.txt": "Written by make_questions.py: change the list there.",
    "Questions.1.txt": "Geschrieben von make_questions.py: die Liste wird dort geändert.",
}


def states(block):
    for line in block.strip().split("\n"):
        english, capital, german, german_capital = (part.strip() for part in line.split(","))
        yield (english, capital), (english if german == "=" else german,
                                   capital if german_capital == "=" else german_capital)


def main():
    for number, (name, note) in enumerate(NOTES.items()):
        lines = [f"# {note}", "", f"Rounds: {ROUNDS}", "Choices: 4"]
        for level, block in enumerate(LEVELS, 1):
            lines += ["", f"Level: {level}"]
            for both in states(block):
                lines += ["", f"Question: {both[number][0]}", f"Right: {both[number][1]}"]
        (FOLDER / name).write_text("\n".join(lines) + "\n", encoding="utf-8")


main()
